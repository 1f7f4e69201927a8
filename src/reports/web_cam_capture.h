#pragma once

#include "session/session.h"

namespace opd::reports {

/// Takes one frame from the workstation's camera, the window "Smile" being shown meanwhile. Null when there is no
/// camera or it gives no picture; nothing is said about that.
SharedImage captureStill(Session& session);

} // namespace opd::reports
