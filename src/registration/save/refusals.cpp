#include "registration/save/refusals.h"

#include "ado/error.h"
#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/rules/validate_data.h"
#include "registration/save/apostrophes.h"
#include "registration/save/similar_records.h"
#include "registration/statements/queries.h"
#include "ui/window.h"

namespace opd::registration {

std::string shownHospNum(const HeaderFields& header) {
    return text::trimmed(header.txtHospNum.text());
}

namespace {

/// A new patient who resembles one on file is registered only when the clerk says so. Behind a commit without an answer
/// it would be this very registration that is found, and the clerk has answered by then.
bool passesDuplicateCheck(Session& session, HeaderFields& header, const Record& record) {
    if (!record.isNew() || shownHospNum(header) != "NEW" || record.mayBeWritten)
        return true;
    const ado::Recordset similar =
        data::openClient(session,
                         statements::similarRecords(header.txtLastName.text(), header.txtFirstName.text(),
                                                    static_cast<long>(text::leadingNumber(header.txtAge.text()))),
                         ado::CursorType::Dynamic, ado::LockType::Optimistic);
    if (similar.EndOfFile())
        return true;
    const ui::Message question{.text = "There is a registered patient(s) with the same last name, first name and age. "
                                       "Would you like to continue?",
                               .caption = "NOTIFICATION",
                               .buttons = ui::Buttons::YesNo,
                               .detail = whoIsMeant(session, header, similar)};
    if (session.desktop.ask(question) == ui::Answer::Yes)
        return true;
    session.desktop.ask({.text = "Registration Cancelled."});
    header.txtLastName.window().unload();
    return false;
}

bool passesConfinementCheck(Session& session, HeaderFields& header, bool updateOnly) {
    if (session.globals.isAllowOPDRegisterInpatient || updateOnly)
        return true;
    const ado::Recordset confined = data::openClient(session, statements::confinement(shownHospNum(header)));
    if (confined.EndOfFile())
        return true;
    session.desktop.ask(
        {.text = "Cannot register currently confined patients", .caption = "Message", .icon = ui::Icon::Critical});
    header.txtLastName.window().unload();
    return false;
}

bool hasPatientClass(Session& session, ui::TextBox& patientClass) {
    if (!lacksPatientClass(session.globals, patientClass))
        return true;
    const char* const fault = "Cannot register patient! Please provide patient classification.";
    patientClass.setRefusal(fault);
    session.desktop.ask({.text = fault, .caption = "Message", .icon = ui::Icon::Critical});
    patientClass.window().setFocus(patientClass);
    return false;
}

/// The numbers on the screen are those that the form was opened for; with any others the form shows nobody's record,
/// or another patient's, and is not saved.
void requireOwnNumbers(const HeaderFields& header, const Record& record) {
    const auto differs = [](const std::string& shown, const std::string& opened) {
        return !text::equalsIgnoringCase(text::trimmed(shown), text::trimmed(opened));
    };
    if (differs(header.txtHospNum.text(), record.HospNum) || differs(header.txtOPDNum.text(), record.AdmissionNumber))
        throw ado::Error("This form was opened for hospital number " + record.HospNum + " and visit " +
                         record.AdmissionNumber + ", but does not show them. Please open the patient again.");
}

} // namespace

bool maySave(Session& session, Fields& fields, const Record& record, bool updateOnly) {
    requireOwnNumbers(fields.header, record);
    return settleApostrophes(session.desktop, fields.header.txtLastName.window(), fields) &&
           passesDuplicateCheck(session, fields.header, record) &&
           passesConfinementCheck(session, fields.header, updateOnly) &&
           hasPatientClass(session, fields.additional.txtPatientClassID);
}

} // namespace opd::registration
