#include "search/patient_opener.h"

#include "base/text/text.h"
#include "data/procedures/checks.h"
#include "ui/window.h"

namespace opd::search {

namespace {

constexpr const char* toBeGenerated = "(TO BE GENERATED)";

} // namespace

// Whoever opens a patient has done with the namesake.
void PatientOpener::leaveSearch() {
    m_window.unload();
    m_session.globals.duplicateLedBackTo.clear();
}

// Another program may have stored such a number. What the clerk reads must be of use: nobody can leave the sign out
// here.
bool PatientOpener::canBeSent(const char* kind, const std::string& number) {
    if (ado::isSendable(number))
        return true;
    m_session.desktop.ask({.text = std::string{"The "} + kind + " " + number +
                                   " holds an apostrophe, and this desk cannot open such a number. Please have it "
                                   "corrected where it was given out; the patient can be opened then.",
                           .icon = ui::Icon::Exclamation});
    return false;
}

void PatientOpener::openChosen() {
    if (!canBeSent("hospital number", m_session.globals.gSelectedHospNum))
        return;
    const std::string openVisitNumber = data::GetOpenVisit(m_session);
    if (openVisitNumber.empty()) {
        openNewVisit(Showing::Modal);
        return;
    }
    if (!m_session.globals.isAllowCreateNewIDnum) {
        m_session.desktop.ask({.text = "The Patient is currently registered with an OPD number '" + openVisitNumber +
                                       "'. Please use the current account. "});
        m_window.unload();
        return;
    }
    if (m_session.desktop.ask({.text = "The Patient is still registered! Do you want to register new OPD Number?",
                               .buttons = ui::Buttons::YesNo}) == ui::Answer::Yes)
        openNewVisit(Showing::Modeless);
    else
        openVisit(openVisitNumber);
}

void PatientOpener::openNewVisit(Showing showing) {
    const std::string hospNum = m_session.globals.gSelectedHospNum;
    if (text::isBlank(hospNum)) {
        m_window.unload();
        return;
    }
    const Opened outcome = m_registration.open({.FormType = "New",
                                                .HospNum = hospNum,
                                                .AdmissionNumber = toBeGenerated,
                                                .modal = showing == Showing::Modal,
                                                .beforeShowing = [this] { leaveSearch(); }});
    if (outcome == Opened::Refused)
        m_window.unload();
}

void PatientOpener::openVisit(const std::string& opdNumber) {
    if (canBeSent("OPD number", opdNumber))
        m_registration.open({.FormType = "Edit",
                             .HospNum = m_session.globals.gSelectedHospNum,
                             .AdmissionNumber = opdNumber,
                             .beforeShowing = [this] { leaveSearch(); }});
}

bool PatientOpener::Proc_AdmitNewRecord(const NewPatient& patient, const std::string& noMatch) {
    const ui::Message question{
        .text = "There is at least one record that matches your search criteria.\r\nYou can choose to use that "
                "registration by double-click on the person's name on the list.\r\nAre you sure you want to create a "
                "new hospital no. instead?",
        .caption = "Verification",
        .buttons = ui::Buttons::YesNoCancel,
        .icon = ui::Icon::Exclamation,
        .defaultAnswer = ui::Answer::Cancel};
    if (noMatch.empty() && m_session.desktop.ask(question) != ui::Answer::Yes)
        return false;
    m_registration.open({.FormType = "NEW",
                         .HospNum = "NEW",
                         .AdmissionNumber = toBeGenerated,
                         .lastName = patient.lastName,
                         .sex = patient.sex,
                         .birthDate = patient.birthDate,
                         .status = noMatch.empty() ? "" : noMatch + " This is a new patient.",
                         .beforeShowing = [this] { m_window.unload(); }});
    if (m_session.globals.gDuplicateLastName.empty()) // registered or given up: the namesake is of no concern any more
        m_session.globals.duplicateLedBackTo.clear();
    return true;
}

} // namespace opd::search
