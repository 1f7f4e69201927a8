#include "reports/web_cam_capture.h"

#include "platform/ui/window.h"

namespace opd::reports {

namespace {

/// A window with no behaviour of its own, for the patient to look at.
struct frmWebCamCapture : ui::Window {
    frmWebCamCapture() : Window("frmWebCamCapture", "Smile") {}
    ~frmWebCamCapture() override { unload(); }

    ui::Label lblSmile{*this, "lblSmile", "Please look into the camera."};
};

} // namespace

SharedImage captureStill(Session& session) {
    frmWebCamCapture form;
    session.desktop.show(form);
    const ui::BusyPointer busy(session.desktop);
    std::optional<Image> still = session.devices.camera.takeStill();
    return still && !still->isEmpty() ? std::make_shared<const Image>(std::move(*still)) : nullptr;
}

} // namespace opd::reports
