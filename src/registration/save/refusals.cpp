#include "registration/save/refusals.h"

#include "ado/error.h"
#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/save/apostrophes.h"
#include "ui/window.h"

namespace opd::registration {

using ado::Statement;

std::string shownHospNum(const FormContext& form) {
    return text::trimmed(form.fields.header.txtHospNum.text());
}

namespace {

/// A new patient who resembles one on file is registered only when the clerk says so. Behind a commit without an answer
/// it would be this very registration that is found, and the clerk has answered by then.
bool passesDuplicateCheck(FormContext& form) {
    if (!form.record.isNew() || shownHospNum(form) != "NEW" || form.record.mayBeWritten)
        return true;
    const HeaderFields& header = form.fields.header;
    const ado::Recordset similar =
        data::openClient(form.session,
                         Statement("PATIENT_DATA..sp_AOPD_SearchSimilarRecords '")
                             .values({header.txtLastName.text(), header.txtFirstName.text()}, "','")
                             .text("',")
                             .number(static_cast<long>(text::leadingNumber(header.txtAge.text()))),
                         ado::CursorType::Dynamic, ado::LockType::Optimistic);
    if (similar.EndOfFile())
        return true;
    const ui::Message question{.text = "There is a registered patient(s) with the same last name, first name and age. "
                                       "Would you like to continue?",
                               .caption = "NOTIFICATION",
                               .buttons = ui::Buttons::YesNo};
    if (form.session.desktop.ask(question) == ui::Answer::Yes)
        return true;
    form.session.desktop.ask({.text = "Registration Cancelled."});
    form.window.unload();
    return false;
}

bool passesConfinementCheck(FormContext& form, bool updateOnly) {
    if (form.session.globals.isAllowOPDRegisterInpatient || updateOnly)
        return true;
    const ado::Recordset confined = data::openClient(
        form.session, Statement("PATIENT_DATA..sp_AOPD_CheckIfAdmitted '").value(shownHospNum(form)).text("'"));
    if (confined.EndOfFile())
        return true;
    form.session.desktop.ask(
        {.text = "Cannot register currently confined patients", .caption = "Message", .icon = ui::Icon::Critical});
    form.window.unload();
    return false;
}

bool hasPatientClass(FormContext& form) {
    ui::TextBox& patientClass = form.fields.additional.txtPatientClassID;
    if (!form.session.globals.IsAllowOPDPatientClass || !text::isBlank(patientClass.text()))
        return true;
    const char* const fault = "Cannot register patient! Please provide patient classification.";
    patientClass.setRefusal(fault);
    form.session.desktop.ask({.text = fault, .caption = "Message", .icon = ui::Icon::Critical});
    form.window.setFocus(patientClass);
    return false;
}

/// The numbers on the screen are those that the form was opened for; with any others the form shows nobody's record,
/// or another patient's, and is not saved.
void requireOwnNumbers(const FormContext& form) {
    const Record& record = form.record;
    const HeaderFields& header = form.fields.header;
    const auto differs = [](const std::string& shown, const std::string& opened) {
        return !text::equalsIgnoringCase(text::trimmed(shown), text::trimmed(opened));
    };
    if (differs(header.txtHospNum.text(), record.HospNum) || differs(header.txtOPDNum.text(), record.AdmissionNumber))
        throw ado::Error("This form was opened for hospital number " + record.HospNum + " and visit " +
                         record.AdmissionNumber + ", but does not show them. Please open the patient again.");
}

} // namespace

bool maySave(FormContext& form, bool updateOnly) {
    requireOwnNumbers(form);
    return settleApostrophes(form) && passesDuplicateCheck(form) && passesConfinementCheck(form, updateOnly) &&
           hasPatientClass(form);
}

} // namespace opd::registration
