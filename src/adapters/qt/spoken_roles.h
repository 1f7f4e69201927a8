#pragma once

namespace opd::qt {

/// Tells assistive programs what things are where the toolkit says something else of them: a window is a window or a
/// dialog, an option button one of a group, the status line a status line. Once for the process; again does nothing.
void nameSpokenRoles();

} // namespace opd::qt
