#include "registration/save/refusals.h"

#include "data/leading_number.h"
#include "data/rows.h"
#include "platform/text/text.h"
#include "platform/ui/window.h"

namespace opd::registration {

using data::Statement;

std::string shownHospNum(const FormContext& form) {
    return text::trimmed(form.fields.header.txtHospNum.text());
}

namespace {

/// A new patient who resembles one on file is registered only when the clerk says so.
bool passesDuplicateCheck(FormContext& form) {
    if (!form.record.isNew() || shownHospNum(form) != "NEW")
        return true;
    const HeaderFields& header = form.fields.header;
    const ado::Recordset similar =
        data::openClient(form.session,
                         Statement("PATIENT_DATA..sp_AOPD_SearchSimilarRecords '")
                             .values({header.txtLastName.text(), header.txtFirstName.text()}, "','")
                             .text("',")
                             .number(static_cast<long>(data::leadingNumber(header.txtAge.text()))),
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
    form.session.desktop.ask({.text = "Cannot register patient! Please provide patient classification.",
                              .caption = "Message",
                              .icon = ui::Icon::Critical});
    form.window.setFocus(patientClass);
    return false;
}

} // namespace

bool maySave(FormContext& form, bool updateOnly) {
    return passesDuplicateCheck(form) && passesConfinementCheck(form, updateOnly) && hasPatientClass(form);
}

} // namespace opd::registration
