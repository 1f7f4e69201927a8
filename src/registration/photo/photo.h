#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// Lets "Capture" take the patient's photograph, for as long as it lives.
class PhotoCapture {
  public:
    PhotoCapture(Session& session, AdditionalTab& additional, Record& record);
    PhotoCapture(const PhotoCapture&) = delete;
    PhotoCapture& operator=(const PhotoCapture&) = delete;

  private:
    void capture();

    Session& m_session;
    ui::Picture& m_picture;
    bool& m_taken;
};

/// Shows the photograph that is on file for the patient, if there is one.
void showStoredPhotograph(const ImageCodec& images, AdditionalTab& additional, const std::string& hospNum);

/// Stores the shown photograph under the number `SaveHospNum` when one was taken. Returns why that failed, for the
/// clerk to read; empty when nothing did.
std::string storePhotograph(const ImageCodec& images, const AdditionalTab& additional, const Record& record);

} // namespace opd::registration
