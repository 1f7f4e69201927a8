#include "search/patient_opener.h"

#include "base/text/text.h"
#include "data/procedures/checks.h"
#include "ui/window.h"

namespace opd::search {

namespace {

constexpr const char* toBeGenerated = "(TO BE GENERATED)";

/// Throws the loaded form away at the end of its scope unless it was shown.
class Unshown {
  public:
    explicit Unshown(RegistrationOpener& registration) : m_registration(&registration) {}
    ~Unshown() {
        if (m_registration != nullptr)
            m_registration->discard();
    }
    Unshown(const Unshown&) = delete;
    Unshown& operator=(const Unshown&) = delete;

    void shown() { m_registration = nullptr; }

  private:
    RegistrationOpener* m_registration;
};

} // namespace

bool PatientOpener::confirmed(const std::string& text, const std::string& caption, ui::Icon icon) {
    ui::Message question{.text = text, .buttons = ui::Buttons::YesNo, .icon = icon};
    if (!caption.empty())
        question.caption = caption;
    return m_session.desktop.ask(question) == ui::Answer::Yes;
}

void PatientOpener::prepare(const char* formType, const std::string& hospNum, const std::string& admissionNumber) {
    const ui::BusyPointer busy(m_session.desktop);
    m_registration.setFormType(formType);
    m_registration.setHospNum(hospNum);
    m_registration.setAdmissionNumber(admissionNumber);
    m_registration.SetRegistrationMode();
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
    if (confirmed("The Patient is still registered! Do you want to register new OPD Number?", {}, ui::Icon::None))
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
    Unshown form(m_registration);
    prepare("New", hospNum, toBeGenerated);
    if (data::CheckPatientMasterAccount(m_session, hospNum) &&
        !confirmed("Account is for employees medicine's. Do you wish to proceed? ", "Message", ui::Icon::Question))
        return;
    const bool mayRegister = m_registration.SearchPatient();
    m_window.unload();
    if (!mayRegister)
        return;
    m_session.globals.duplicateLedBackTo.clear();
    form.shown();
    if (showing == Showing::Modal)
        m_registration.showModal();
    else
        m_registration.show();
}

void PatientOpener::openVisit(const std::string& opdNumber) {
    if (!canBeSent("OPD number", opdNumber))
        return;
    Unshown form(m_registration);
    prepare("Edit", m_session.globals.gSelectedHospNum, opdNumber);
    m_window.unload();
    m_session.globals.duplicateLedBackTo.clear();
    form.shown();
    m_registration.showModal();
}

bool PatientOpener::Proc_AdmitNewRecord(const std::string& lastName, const std::string& noMatch) {
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
    Unshown form(m_registration);
    m_registration.setLastName(lastName);
    prepare("NEW", "NEW", toBeGenerated);
    if (!noMatch.empty())
        m_registration.setStatus(noMatch + " This is a new patient.");
    m_window.unload();
    form.shown();
    m_registration.showModal();
    if (m_session.globals.gDuplicateLastName.empty()) // registered or given up: the namesake is of no concern any more
        m_session.globals.duplicateLedBackTo.clear();
    return true;
}

} // namespace opd::search
