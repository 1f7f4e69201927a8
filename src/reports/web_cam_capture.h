#pragma once

#include "session/session.h"
#include "ui/window.h"

namespace opd::reports {

/// The window that the patient looks at while the camera takes the picture. It has no behaviour of its own.
struct frmWebCamCapture : ui::Window {
    frmWebCamCapture() : Window("frmWebCamCapture", "Smile") {}
    ~frmWebCamCapture() override { unload(); }

    ui::Label lblSmile{*this, "lblSmile", "Please look into the camera."};
};

/// Takes one frame from the workstation's camera, the window "Smile" being shown meanwhile. Null when there is no
/// camera or it gives no picture; nothing is said about that.
SharedImage captureStill(Session& session);

} // namespace opd::reports
