#include "registration/photo/photo.h"

#include "reports/photograph.h"
#include "reports/web_cam_capture.h"

#include <stdexcept>

namespace opd::registration {

void bindCapture(FormContext& form) {
    form.fields.additional.cmdCapture.onClick = [&form] {
        if (SharedImage still = reports::captureStill(form.session))
            form.fields.additional.picPatient.setImage(std::move(still));
        form.record.PhotoTaken = true;
    };
}

void showStoredPhotograph(FormContext& form) {
    AdditionalTab& additional = form.fields.additional;
    const std::filesystem::path file =
        reports::photographFile(additional.txtPictureLocation.text(), form.record.HospNum);
    reports::StoredPhotograph stored = reports::storedPhotograph(form.session.devices.images, file);
    if (!stored.problem.empty())
        form.window.setStatus("The photograph on file is not shown. " + stored.problem);
    if (!stored.image)
        return;
    additional.picPatient.setImage(std::move(stored.image));
    additional.txtPictureFileName.setText(file.filename().string());
}

std::string storePhotograph(const FormContext& form) {
    const AdditionalTab& additional = form.fields.additional;
    if (!form.record.PhotoTaken || !additional.picPatient.image())
        return {};
    try {
        reports::storePhotograph(
            form.session.devices.images, *additional.picPatient.image(),
            reports::photographFile(additional.txtPictureLocation.text(), form.record.SaveHospNum));
    } catch (const std::runtime_error& failure) { // the visit is written and stands without it
        return "The photograph could not be stored. " + std::string{failure.what()} +
               "\nThe patient's record is saved all the same.";
    }
    return {};
}

} // namespace opd::registration
