#include "registration/registration_form.h"

#include "data/rows.h"
#include "registration/load/form_load.h"
#include "registration/record/codes.h"
#include "registration/rules/validate_data.h"
#include "registration/save/apostrophes.h"
#include "registration/save/save_data.h"
#include "registration/statements/changes.h"
#include "reports/prepare_report.h"

namespace opd::registration {

RegistrationForm::RegistrationForm(Session& session, const Opening& opening)
    : m_session(session), m_kept(session, m_window, m_fields, m_record, opening.HospNum), m_lastName(opening.lastName) {
    m_record.FormType = opening.FormType;
    m_record.HospNum = opening.HospNum;
    m_record.AdmissionNumber = opening.AdmissionNumber;
    m_window.onLoad = [this] { loadForm(m_session, m_fields, m_record); };
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    bindMarks(m_fields);
    bindApostrophes(m_window, m_fields);
    m_guidance.emplace(m_window, m_fields, m_record, m_session.globals);
    bindButtons();
    disableIdleButtons();
}

RegistrationForm::~RegistrationForm() {
    m_window.unload();
}

void RegistrationForm::SetRegistrationMode() {
    m_window.load();
    if (!m_lastName.empty())
        m_fields.header.txtLastName.setText(m_lastName);
    m_fields.header.fraMasterFileRegistrationOnly.setVisible(false);
    m_fields.header.dtpAdmDate.setEnabled(true);
    m_fields.header.txtAdmTime.setEnabled(true);
    m_fields.additional.page.setEnabled(true);
    m_fields.consultation.page.setEnabled(true);
    m_fields.buttons.cmdPrint.setVisible(true);
    m_fields.buttons.cmdUpdate.setVisible(false);
    if (m_record.isNewPatient())
        m_window.setFocus(m_lastName.empty() ? m_fields.header.txtLastName : m_fields.header.txtFirstName);
    m_kept.offer();
}

void RegistrationForm::bindButtons() {
    FormButtons& buttons = m_fields.buttons;
    buttons.cmdSave.onClick = [this] { save(false); };
    buttons.cmdPrint.onClick = [this] { saveAndPrint(); };
    buttons.cmdUpdate.onClick = [this] { save(true); };
    buttons.cmdEndConsultation.onClick = [this] { endConsultation(); };
    buttons.cmdCancel.onClick = [this] { cancel(); };
    buttons.cmdCancel.causesValidation = false;
    m_window.cancelButton = &buttons.cmdCancel;
    m_window.onCloseRequest = [this] { cancel(); };
    ui::CheckBox& others = m_fields.history.others;
    others.onClick = [this, &others] { m_fields.history.txtMedHistory.setEnabled(others.checked()); };
}

// A button that nothing is bound to is shown, and not offered.
void RegistrationForm::disableIdleButtons() {
    std::vector<ui::Control*> everything;
    m_window.collect(everything);
    for (ui::Control* control : everything)
        if (control->kind() == ui::Kind::Button && !control->onClick)
            control->setEnabled(false);
}

bool RegistrationForm::validate() {
    return ValidateData(m_session.desktop, m_fields, m_record, m_session.globals.AccountTypeCode);
}

void RegistrationForm::save(bool updateOnly) {
    if (validate() && SaveData(m_session, m_fields, m_record, updateOnly))
        close();
}

// Without a number nothing is stored, and what was typed must not go with the form.
void RegistrationForm::close() {
    if (m_record.lacksNumber)
        m_kept.keep();
    else
        m_kept.forgetTakenUp();
    m_session.globals.lastOutcome = storedOutcome(m_record);
    m_window.unload();
}

void RegistrationForm::saveAndPrint() {
    if (!validate() || !SaveData(m_session, m_fields, m_record, false))
        return;
    const bool wasWritten = !m_record.lacksNumber;
    std::unique_ptr<report::Report> report;
    if (wasWritten)
        report = reports::PrepareReport(
            m_session, m_session.devices.moduleFolder / "Reports" / "DataSheet.rpt",
            {savedVisit(m_record), m_session.globals.gCompanyName, m_session.globals.gCompanyAddress});
    close();
    if (report)
        reports::ShowReport(m_session, *report, false, "Out-Patient & Emergency Room Record", false);
}

void RegistrationForm::cancel() {
    const ui::Message question{.text = "Are you sure to close this program?",
                               .caption = "OPD Registration System",
                               .buttons = ui::Buttons::OkCancel,
                               .icon = ui::Icon::Question};
    if (m_session.desktop.ask(question) == ui::Answer::Cancel)
        return;
    m_kept.forgetTakenUp(); // the clerk gives it up
    m_window.unload();
}

void RegistrationForm::endConsultation() {
    const ui::BusyPointer busy(m_session.desktop);
    data::execute(m_session, statements::endConsultation(m_record.AdmissionNumber));
    m_window.unload();
}

} // namespace opd::registration
