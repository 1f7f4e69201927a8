#include "registration/registration_form.h"

#include "ado/error.h"
#include "data/rows.h"
#include "registration/load/authorization_loader.h"
#include "registration/load/form_load.h"
#include "registration/record/codes.h"
#include "registration/record/sent_fields.h"
#include "registration/rules/validate_data.h"
#include "registration/save/apostrophes.h"
#include "registration/save/save_data.h"
#include "registration/statements/changes.h"
#include "reports/data_sheet.h"
#include "ui/window_content.h"

namespace opd::registration {

namespace {

std::string revokedMeanwhile(const std::string& visit, bool canBeRestored) {
    const std::string fact = "Visit " + visit +
                             " was revoked at another desk after it was opened here. A save does not bring it back: "
                             "nothing was saved.\r\n\r\n";
    return fact + (canBeRestored
                       ? "If it is to stand, have it restored at another desk and press Update again: what was "
                         "typed is still here. Or press Unrevoke here, which restores it and closes this form "
                         "without what was typed."
                       : "It is not of today and cannot be restored any more. Please close this form; the "
                         "patient can be registered anew.");
}

/// What another desk changed, and that nothing of this save is stored.
std::string changedElsewhere(const Record& record) {
    const std::string changed = record.isEdit() ? "visit " + record.AdmissionNumber + " or its patient"
                                                : "the record of Hosp. # (" + record.HospNum + ")";
    return "Another desk stored changes to " + changed + " after it was opened here. Nothing of this " +
           (record.isWritten ? "try" : "desk") + " is saved yet.";
}

std::string gone(const Record& record) {
    const std::string fact = record.isEdit()
                                 ? "visit " + record.AdmissionNumber + " can no longer be edited as it is stored now"
                                 : "Hosp. # (" + record.HospNum + ") is no longer on file";
    return "Nothing was saved: " + fact + ". Please close this form.";
}

} // namespace

RegistrationForm::RegistrationForm(Session& session, const Opening& opening)
    : m_session(session), m_kept(session, m_window, m_fields, m_record, opening.HospNum), m_opening(opening) {
    m_record.FormType = opening.FormType;
    m_record.HospNum = opening.HospNum;
    m_record.AdmissionNumber = opening.AdmissionNumber;
    m_window.onLoad = [this] { loadForm(m_session, m_fields, m_record); };
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    bindMarks(m_fields);
    m_guidance.emplace(m_window, m_fields, m_record, m_session.globals);
    m_window.onContentChange = [this](ui::Control& changed) {
        takeBackUnstorable(changed);
        m_guidance->follow(changed);
    };
    bindButtons();
    disableIdleButtons();
}

RegistrationForm::~RegistrationForm() {
    m_window.unload();
}

void RegistrationForm::SetRegistrationMode() {
    load();
    m_kept.offer();
    m_guidance->markNeeded();
}

void RegistrationForm::load() {
    m_window.load();
    takeOverSearch();
    m_fields.header.fraMasterFileRegistrationOnly.setVisible(false);
    m_fields.header.dtpAdmDate.setEnabled(true);
    m_fields.header.txtAdmTime.setEnabled(true);
    m_fields.additional.page.setEnabled(true);
    m_fields.consultation.page.setEnabled(true);
    m_fields.buttons.cmdPrint.setVisible(true);
    m_fields.buttons.cmdUpdate.setVisible(false);
    if (m_record.isNewPatient())
        m_window.setFocus(m_opening.lastName.empty() ? m_fields.header.txtLastName : m_fields.header.txtFirstName);
    rememberLoaded();
}

/// What was searched for goes into the form of a new patient.
void RegistrationForm::takeOverSearch() {
    HeaderFields& header = m_fields.header;
    if (!m_opening.lastName.empty())
        header.txtLastName.setText(m_opening.lastName);
    if (m_opening.sex == "F")
        header.female.setSelected(true);
    m_rules.patient().takeOver(m_opening.birthDate);
}

void RegistrationForm::rememberLoaded() {
    if (!m_record.isEdit())
        return;
    m_loaded = values(FieldValues::Meaning::Stored);
    m_wasRevoked = m_fields.header.lblAdmissionStatus.visible();
}

FieldValues RegistrationForm::values(FieldValues::Meaning meaning) const {
    return {m_window, m_fields, m_record, meaning};
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
    m_window.forEach([](ui::Control& control) {
        if (control.kind() == ui::Kind::Button && !control.onClick)
            control.setEnabled(false);
    });
}

bool RegistrationForm::validate() {
    return ValidateData(m_session.desktop, m_fields, m_record, m_session.globals.AccountTypeCode);
}

void RegistrationForm::save(bool updateOnly) {
    if (stores(updateOnly))
        close();
}

/// Checks and saves. Where another desk came first the clerk decides, as often as that happens. Rows that no two
/// readings answer alike, as procedures of a hospital's own may give them, would never be saved.
bool RegistrationForm::stores(bool updateOnly) {
    constexpr int mostTries = 10;
    for (int tries = 0; validate(); ++tries) {
        if (tries == mostTries)
            throw ado::Error(
                "Nothing of this try was saved: what is stored changes at every look. Please try again. If it lasts, "
                "the administrator can switch the look off (opd-desk configure --watch-other-desks no).");
        if (SaveData(m_session, m_fields, m_record, updateOnly))
            return true;
        if (!m_record.isOutdated || !mayOverwrite())
            return false;
    }
    return false;
}

/// Another desk stored something: whether this one may write over it. What is stored by now is loaded as a form that
/// nobody sees.
bool RegistrationForm::mayOverwrite() {
    RegistrationForm storedNow(m_session, m_opening);
    storedNow.load();
    if (isGone(storedNow.m_record)) {
        m_session.desktop.ask({.text = gone(m_record)});
        return false;
    }
    return m_record.isEdit() ? mayOverwriteVisit(storedNow) : mayOverwritePatient(storedNow);
}

/// Whether what this form was opened for cannot be opened any more.
bool RegistrationForm::isGone(const Record& storedNow) const {
    return m_record.isEdit() ? !storedNow.isLoaded : m_record.isOnFile && !storedNow.isOnFile;
}

bool RegistrationForm::mayOverwriteVisit(const RegistrationForm& storedNow) {
    if (isRevokedMeanwhile(storedNow))
        return false;
    const Stands stands = chooses(m_loaded, storedNow.m_loaded);
    if (stands == Stands::Theirs)
        take(storedNow);
    if (stands != Stands::Mine)
        return false;
    m_loaded = storedNow.m_loaded;
    m_record.followUnshown(storedNow.m_record);
    return true;
}

/// A new visit was filled from the patient alone. How that was is not kept with every form: it is loaded anew from the
/// rows of the opening.
bool RegistrationForm::mayOverwritePatient(const RegistrationForm& storedNow) {
    RegistrationForm asOpened(m_session, m_opening);
    asOpened.m_record.rows.answerAs(m_record.rows);
    asOpened.load();
    const auto loaded = [](const RegistrationForm& form) { return form.values(FieldValues::Meaning::Stored); };
    const Stands stands = chooses(loaded(asOpened), loaded(storedNow));
    if (stands == Stands::Mine)
        m_record.followUnshown(storedNow.m_record);
    if (stands == Stands::Theirs)
        takePatient(storedNow, asOpened);
    return stands == Stands::Mine;
}

/// A visit that was revoked while it was open here is not brought back by a save.
bool RegistrationForm::isRevokedMeanwhile(const RegistrationForm& storedNow) {
    const bool isRevoked = storedNow.m_wasRevoked && !m_wasRevoked;
    if (!isRevoked)
        return false;
    FormButtons& buttons = m_fields.buttons;
    buttons.cmdUnRevoke.setVisible(storedNow.m_fields.buttons.cmdUnRevoke.visible());
    buttons.cmdRevoke.setVisible(false);
    m_fields.header.lblAdmissionStatus.setVisible(true);
    m_session.desktop.ask({.text = revokedMeanwhile(m_record.AdmissionNumber, buttons.cmdUnRevoke.visible()),
                           .caption = "Notification",
                           .icon = ui::Icon::Exclamation});
    return true;
}

Stands RegistrationForm::chooses(const FieldValues& loaded, const FieldValues& storedNow) {
    const auto isWritten = [this](const ui::Control& field) {
        return isSentHere(m_fields, field, m_session.globals, m_record);
    };
    std::vector<FieldDifference> found =
        differences(m_window, loaded, storedNow, values(FieldValues::Meaning::Written), isWritten);
    if (found.empty())
        return Stands::Mine; // nothing that this desk would change
    frmChangedMeanwhile question(std::move(found));
    if (m_record.isNew())
        question.fields().cmdTakeTheirs.hint =
            "Shows in the form what the other desk stored; whatever else was typed here stays.";
    return question.ask(m_session.desktop, changedElsewhere(m_record));
}

/// Shows what is stored now in the place of what was loaded and typed.
void RegistrationForm::take(const RegistrationForm& storedNow) {
    ui::WindowContent(storedNow.m_window).restore(m_window);
    m_record = storedNow.m_record;
    m_loaded = storedNow.m_loaded;
    m_wasRevoked = storedNow.m_wasRevoked;
    tellUnknownMoments(m_fields.additional, m_record);
    showTaken("This is what the other desk stored. What was typed here is given up.");
}

/// Shows what another desk stored of the patient. What was typed besides, that of the visit above all, is no other
/// desk's business and stays.
void RegistrationForm::takePatient(const RegistrationForm& storedNow, const RegistrationForm& asOpened) {
    ui::WindowContent(storedNow.m_window).restoreChanges(ui::WindowContent(asOpened.m_window), m_window);
    m_record.takeUnshown(storedNow.m_record);
    showTaken("What the other desk stored stands in the form. Whatever else was typed here is kept.");
}

void RegistrationForm::showTaken(const std::string& status) {
    showAgeInMonths(m_fields.header, m_session.globals.gServerDate); // restoring raises no change
    m_guidance->markNeeded();
    m_window.setFocus(m_fields.header.txtLastName);
    m_window.setStatus(status);
}

// Without a number nothing is stored, and what was typed must not go with the form.
void RegistrationForm::close() {
    if (m_record.lacksNumber)
        m_kept.keep();
    else
        m_kept.forgetTakenUp();
    m_session.globals.lastOutcome = storedOutcome(m_record);
    rememberStored();
    m_window.unload();
}

void RegistrationForm::rememberStored() {
    if (!m_record.isWritten)
        return;
    m_session.globals.lastRegistered = registeredOutcome(m_fields.header, m_record);
    m_session.globals.lastHospNum = m_record.SaveHospNum;
    m_session.globals.lastOPDNumber = savedVisit(m_record);
}

void RegistrationForm::saveAndPrint() {
    if (!stores(false))
        return;
    const bool wasWritten = !m_record.lacksNumber;
    std::unique_ptr<report::Report> report;
    if (wasWritten)
        report = reports::prepareDataSheet(m_session, savedVisit(m_record));
    close();
    if (report)
        reports::showDataSheet(m_session, *report);
}

void RegistrationForm::cancel() {
    const ui::Message question{.text = "Are you sure to close this program?",
                               .caption = "OPD Registration System",
                               .buttons = ui::Buttons::OkCancel,
                               .icon = ui::Icon::Question};
    if (m_session.desktop.ask(question) == ui::Answer::Cancel)
        return;
    m_kept.forgetTakenUp(); // the clerk gives it up
    rememberStored();       // what followed the commit may have failed; the visit stands
    m_window.unload();
}

void RegistrationForm::endConsultation() {
    const ui::BusyPointer busy(m_session.desktop);
    data::execute(m_session, statements::endConsultation(m_record.AdmissionNumber));
    m_window.unload();
}

} // namespace opd::registration
