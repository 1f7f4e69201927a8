#include "registration/photo/photo.h"

#include "reports/photograph.h"
#include "reports/web_cam_capture.h"
#include "ui/window.h"

#include <stdexcept>

namespace opd::registration {

PhotoCapture::PhotoCapture(Session& session, AdditionalTab& additional, Record& record)
    : m_session(session), m_picture(additional.picPatient), m_taken(record.PhotoTaken) {
    additional.cmdCapture.onClick = [this] { capture(); };
}

void PhotoCapture::capture() {
    if (SharedImage still = reports::captureStill(m_session))
        m_picture.setImage(std::move(still));
    else
        m_picture.window().setStatus("No photograph was taken: the camera is missing or gave no picture.");
    m_taken = true;
}

void showStoredPhotograph(const ImageCodec& images, AdditionalTab& additional, const std::string& hospNum) {
    const std::filesystem::path file = reports::photographFile(additional.txtPictureLocation.text(), hospNum);
    reports::StoredPhotograph stored = reports::storedPhotograph(images, file);
    if (!stored.problem.empty())
        additional.picPatient.window().setStatus("The photograph on file is not shown. " + stored.problem);
    if (!stored.image)
        return;
    additional.picPatient.setImage(std::move(stored.image));
    additional.txtPictureFileName.setText(file.filename().string());
}

std::string storePhotograph(const ImageCodec& images, const AdditionalTab& additional, const Record& record) {
    if (!record.PhotoTaken || !additional.picPatient.image())
        return {};
    try {
        reports::storePhotograph(images, *additional.picPatient.image(),
                                 reports::photographFile(additional.txtPictureLocation.text(), record.SaveHospNum));
    } catch (const std::runtime_error& failure) { // the visit is written and stands without it
        return "The photograph could not be stored. " + std::string{failure.what()} +
               "\nThe patient's record is saved all the same.";
    }
    return {};
}

} // namespace opd::registration
