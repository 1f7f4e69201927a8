#include "reports/web_cam_capture.h"

namespace opd::reports {

SharedImage captureStill(Session& session) {
    frmWebCamCapture form;
    session.desktop.show(form);
    const ui::BusyPointer busy(session.desktop);
    std::optional<Image> still = session.devices.camera.takeStill();
    return still && !still->isEmpty() ? std::make_shared<const Image>(std::move(*still)) : nullptr;
}

} // namespace opd::reports
