#include "registration/save/save_data.h"

#include "data/leading_number.h"
#include "data/rows.h"
#include "platform/ado/error.h"
#include "platform/text/text.h"
#include "platform/ui/window.h"
#include "registration/photo/photo.h"
#include "registration/save/apostrophes.h"
#include "registration/save/codes.h"
#include "registration/save/master_statements.h"
#include "registration/save/numbers.h"
#include "registration/save/visit_statements.h"
#include "registration/subrecords/dependents.h"

namespace opd::registration {

namespace {

using data::Statement;

void run(const FormContext& form, const Statement& statement) {
    data::execute(form.session, statement);
}

std::string shownHospNum(const FormContext& form) {
    return text::trimmed(form.fields.header.txtHospNum.text());
}

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
                         record.AdmissionNumber +
                         ", but does not show them. Nothing was saved. Please open the "
                         "patient again.");
}

/// Numbers drawn for a save that then failed serve the next try: should the first have been written after all, the same
/// visit is written again and not a second one.
bool takeNumbers(FormContext& form) {
    Record& record = form.record;
    if (!record.isNewPatient())
        record.SaveHospNum = shownHospNum(form);
    else if (record.SaveHospNum.empty() && !drawHospNum(form))
        return false;
    if (record.isNewVisit())
        return !record.SaveIDNum.empty() || drawOpdNumber(form);
    record.SaveIDNum = text::trimmed(form.fields.header.txtOPDNum.text());
    if (!record.SaveIDNum.empty())
        record.SaveIDNum.pop_back();
    return true;
}

void writePatientAndVisit(FormContext& form, bool updateOnly) {
    ado::Transaction transaction(form.session.connection());
    run(form, updateMaster(form));
    run(form, saveAllergies(form));
    if (form.session.globals.gClientName != "RVT")
        run(form, updateHistory(form));
    if (!updateOnly) {
        run(form, updateVisit(form));
        for (const Statement& statement : countConsultations(form))
            run(form, statement);
        for (const Statement& statement : updateAdditionalDoctors(form))
            run(form, statement);
    }
    transaction.commit();
}

/// From here on the form is the one of the written visit: what fails later can be tried again without a second visit.
void standForWrittenVisit(FormContext& form) {
    form.record.HospNum = form.record.SaveHospNum;
    form.record.AdmissionNumber = savedVisit(form.record);
    form.fields.header.txtHospNum.setText(form.record.SaveHospNum);
    form.fields.header.txtOPDNum.setText(savedVisit(form.record));
}

void writeMarkers(FormContext& form) {
    const Globals& globals = form.session.globals;
    run(form, updateWalkIn(form));
    if (globals.isAllowCorvane)
        run(form, updateCorvane(form));
    if (globals.IsAllowOPDMABRate)
        run(form, updateMabRate(form));
    const std::string& companyClass = form.record.CompanyClass;
    if (globals.IsAllowOPDUpdateHMOLOA && (companyClass == "P" || companyClass == "H"))
        run(form, saveAuthorization(form));
    if (globals.IsAllowOPDPatientClass)
        run(form, updatePatientClass(form));
    if (globals.gClientName == "TKWA")
        run(form, saveProfile(form));
}

void tellOutcome(FormContext& form, bool updateOnly) {
    const HeaderFields& header = form.fields.header;
    const std::string name = text::upper(header.txtLastName.text()) + ", " + text::upper(header.txtFirstName.text()) +
                             " " + text::upper(header.txtMiddleName.text());
    const std::string outcome = updateOnly ? name + " record was updated."
                                           : name + " was registered as Hosp. # (" + form.record.SaveHospNum +
                                                 ") and Case # (" + form.record.SaveIDNum + "B).";
    form.session.desktop.ask({.text = outcome, .caption = "Notification", .icon = ui::Icon::Information});
}

void tellPhotographFailure(FormContext& form, const std::string& failure) {
    if (!failure.empty())
        form.session.desktop.ask({.text = failure, .caption = "Notification", .icon = ui::Icon::Exclamation});
}

void logAndFile(FormContext& form) {
    if (form.record.isEdit())
        run(form, logEdit(form));
    if (form.session.globals.isAllowOPFileNumbering && !form.fields.personal.chkWalkIn.checked())
        run(form, Statement("Patient_data..OPD_UpdateFileNum '").value(form.record.SaveHospNum).text("'"));
}

} // namespace

bool SaveData(FormContext& form, bool UpdateOnly) {
    const ui::BusyPointer busy(form.session.desktop);
    computeKeptCodes(form);
    requireOwnNumbers(form);
    if (!settleApostrophes(form) || !passesDuplicateCheck(form) || !passesConfinementCheck(form, UpdateOnly) ||
        !hasPatientClass(form))
        return false;
    if (!takeNumbers(form))
        return true;
    writePatientAndVisit(form, UpdateOnly);
    standForWrittenVisit(form);
    run(form, updateExtendedMaster(form));
    SaveDependents(form);
    run(form, updateMedicalHistory(form));
    run(form, updateTreatments(form));
    const std::string photographFailure = storePhotograph(form);
    writeMarkers(form);
    tellOutcome(form, UpdateOnly);
    tellPhotographFailure(form, photographFailure);
    logAndFile(form);
    return true;
}

} // namespace opd::registration
