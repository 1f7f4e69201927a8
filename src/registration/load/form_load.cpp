#include "registration/load/form_load.h"

#include "ado/error.h"
#include "base/text/text.h"
#include "data/procedures/dates.h"
#include "data/rows.h"
#include "registration/accounts/account_records.h"
#include "registration/accounts/payer_rules.h"
#include "registration/coded/code_lookups.h"
#include "registration/load/authorization_loader.h"
#include "registration/load/master_loader.h"
#include "registration/load/visit_loader.h"
#include "registration/photo/photo.h"
#include "registration/statements/queries.h"
#include "reports/photograph.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

/// What is hidden in every form until something shows it.
void hideUntilNeeded(Fields& fields) {
    for (ui::Control* control : std::initializer_list<ui::Control*>{
             &fields.header.lblAdmissionStatus, &fields.header.fraMasterFileRegistrationOnly, &fields.buttons.cmdRevoke,
             &fields.buttons.cmdUnRevoke, &fields.buttons.cmdEndConsultation, &fields.history.lastMenstruation,
             &fields.employment.txtEntry})
        control->setVisible(false);
    fields.personal.dtpExpiration.setEnabled(false);
    fields.history.txtMedHistory.setEnabled(false);
}

void layOutAuthorization(const Session& session, AdditionalTab& additional, Record& record) {
    const bool used = session.globals.IsAllowOPDUpdateHMOLOA;
    additional.letterOfAuthorization.setVisible(used);
    if (!used)
        return;
    DateTime now = session.clock.now();
    now.second = 0; // the pickers show minutes
    for (ui::DatePicker* picker : {&additional.DateLOAInformed, &additional.TimeLOAInformed,
                                   &additional.DateLOAReceived, &additional.TimeLOAReceived})
        picker->setValue(now);
    additional.cmbLOAStatus.select(0);
    record.CompanyClass.clear();
}

/// Shows the parts that the hospital's settings and client code ask for.
void layOutOptionalParts(Session& session, Fields& fields, Record& record) {
    const Globals& globals = session.globals;
    PersonalTab& personal = fields.personal;
    const bool usesPayCodes = globals.client().usesPayCodes;
    for (ui::Control* payCode :
         std::initializer_list<ui::Control*>{&personal.lblPaycode, &personal.cmbPaycode, &personal.cmbPaycodeID})
        payCode->setVisible(usesPayCodes);
    const bool codedBarangay = globals.isAllowOPDSearchBarangay;
    personal.txtBarangay.setVisible(!codedBarangay);
    personal.txtBarangayID.setVisible(codedBarangay);
    personal.txtBarangayName.setVisible(codedBarangay);
    personal.barangay.lookup.setVisible(codedBarangay);
    layOutAuthorization(session, fields.additional, record);
    fields.additional.txtPictureLocation.setText(reports::pictureLocation(reports::pictureFolder(session.settings)));
    fields.additional.txtPictureFileName.setText("(TO BE GENERATED)");
    record.PhotoTaken = false;
    personal.dtpExpiration.setValue(data::GetServerDate(session).date());
    fields.additional.frmPatientType.setVisible(globals.isAllowCorvane);
    fields.additional.fraMAB.setVisible(globals.IsAllowOPDMABRate);
    fields.additional.FraPatientClass.setVisible(globals.IsAllowOPDPatientClass);
    if (globals.isAllowOPDPayCode)
        LoadPayCode(session, personal);
}

/// True when a patient's master was loaded.
bool loadVisitAndPatient(const Session& session, Fields& fields, Record& record) {
    if (!SearchPatient(session, fields, record) || !LoadData(session, fields, record))
        return false;
    LoadData2(session, fields.personal, record.HospNum);
    fields.header.txtHospNum.setEnabled(false);
    fields.header.txtOPDNum.setEnabled(false);
    fields.buttons.cmdSave.setEnabled(true);
    if (session.globals.client().asksLastMenstruation) {
        fields.history.lastMenstruation.setVisible(true);
        loadOutProfile(session, fields.history, record.rows, text::trimmed(fields.header.txtOPDNum.text()));
    }
    LoadAccountClass(session, record, text::trimmed(fields.personal.company.code.text()));
    if (session.globals.IsAllowOPDUpdateHMOLOA)
        LoadHMOLOA(session, fields.additional, record, record.AdmissionNumber);
    standByPayer(fields, session.globals.isAllowCorvane);
    return true;
}

bool loadEdit(const Session& session, Fields& fields, Record& record) {
    record.isLoaded = loadVisitAndPatient(session, fields, record);
    FormButtons& buttons = fields.buttons;
    buttons.cmdSave.setVisible(true);
    buttons.cmdSave.setCaption("&Update");
    buttons.cmdCancel.setEnabled(true);
    buttons.cmdEndConsultation.setVisible(session.globals.allowEndConsultation);
    return record.isLoaded;
}

bool loadNew(Session& session, Fields& fields, Record& record) {
    fields.consultation.txtBloodType.setEnabled(true);
    fields.header.txtHospNum.setText(record.HospNum);
    fields.header.txtOPDNum.setText(record.AdmissionNumber);
    fields.buttons.cmdCancel.setEnabled(true);
    fields.buttons.cmdSave.setCaption("&Register");
    data::LoadServerDate(session);
    data::LoadServerDate(session); // asked twice, as the hospitals know it
    fields.header.dtpAdmDate.setValue(session.globals.gServerDate);
    fields.header.txtAdmTime.setValue(session.globals.gServerDate);
    fields.buttons.cmdEndConsultation.setVisible(false);
    if (!record.isNewPatient()) {
        record.VisitKindCode = "O";
        LoadData(session, fields, record);
        LoadAllergies(session, fields.history, record);
        return true;
    }
    record.VisitKindCode = "N";
    fields.header.male.setSelected(true);
    fields.personal.cboCivilStatus.setText("Single");
    return false;
}

bool loadByType(Session& session, Fields& fields, Record& record) {
    if (record.isEdit())
        return loadEdit(session, fields, record);
    return record.isNew() ? loadNew(session, fields, record) : false;
}

/// A key with an apostrophe cannot be asked for: the clerk learns it before anything is loaded.
void refuseUnsendableKeys(const Record& record) {
    const std::pair<const char*, const std::string&> keys[] = {{"hospital", record.HospNum},
                                                               {"visit", record.AdmissionNumber}};
    for (const auto& [kind, number] : keys)
        if (!ado::isSendable(number))
            throw ado::Error("The " + std::string{kind} + " number " + number +
                             " holds an apostrophe ('), with which this desk can open nothing. The number must be "
                             "changed in the database. Nothing was changed here.");
}

void DisplayPatientAge(const Session& session, HeaderFields& header) {
    const std::string& birthDate = header.txtBirthDate.text();
    constexpr std::size_t completeDate = 10;
    if (text::trimmed(birthDate).size() < completeDate)
        return;
    const ado::Recordset age = data::openClient(session, statements::age(birthDate));
    if (!age.EndOfFile())
        header.txtAge.setText(data::textOf(age, "Age"));
}

} // namespace

void loadForm(Session& session, Fields& fields, Record& record) {
    refuseUnsendableKeys(record);
    record.Findings.clear();
    record.Medications.clear();
    hideUntilNeeded(fields);
    fields.header.txtBirthDate.calendarDay = session.clock.now();
    layOutOptionalParts(session, fields, record);
    if (!loadByType(session, fields, record))
        fields.personal.txtNationality.setText("1");
    resolveNationality(fields.personal.nationality, search::CodeListing(session.globals.gCodeSearch));
    DisplayPatientAge(session, fields.header);
    if (!record.isNewPatient())
        showStoredPhotograph(session.devices.images, fields.additional, record.HospNum);
    fields.tabOPD.show(0);
}

} // namespace opd::registration
