#pragma once

#include "search/registration_opener.h"
#include "session/session.h"

#include <string>

namespace opd::ui {
class Window;
}

namespace opd::search {

/// Leads from the search window to the registration form: for the chosen patient or for a new one.
class PatientOpener {
  public:
    PatientOpener(Session& session, RegistrationOpener& registration, ui::Window& searchWindow)
        : m_session(session), m_registration(registration), m_window(searchWindow) {}

    /// Opens the patient of `gSelectedHospNum` for a new visit or for the visit still open, as the clerk answers. The
    /// search window is unloaded unless the clerk declined or the patient cannot be opened, which is told. Throws
    /// ado::Error.
    void openChosen();

    /// What of a search goes into the form of a new patient; what is empty does not.
    struct NewPatient {
        std::string lastName;
        std::string sex;
        std::string birthDate;
    };

    /// Opens the form for a patient not yet on file and returns when it is closed. `noMatch` says in words what nobody
    /// on file matched, which the form repeats; where it is empty the clerk confirms first. False when the clerk
    /// declined. Throws ado::Error.
    bool Proc_AdmitNewRecord(const NewPatient& patient, const std::string& noMatch);

  private:
    enum class Showing { Modal, Modeless };

    void openNewVisit(Showing showing);
    void openVisit(const std::string& opdNumber);
    void leaveSearch();
    bool canBeSent(const char* kind, const std::string& number);

    Session& m_session;
    RegistrationOpener& m_registration;
    ui::Window& m_window;
};

} // namespace opd::search
