#pragma once

namespace opd::qt {

/// Tells assistive programs what things are where the toolkit says something else of them: a window is a window or a
/// dialog that keeps others from being worked in, a frame is none of these, an option button is one of a group, the
/// status line a status line. Once for the process; again does nothing.
void nameSpokenRoles();

} // namespace opd::qt
