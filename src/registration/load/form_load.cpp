#include "registration/load/form_load.h"

#include "ado/error.h"
#include "base/text/text.h"
#include "data/procedures/dates.h"
#include "data/rows.h"
#include "registration/accounts/payer_rules.h"
#include "registration/coded/code_lookups.h"
#include "registration/load/account_loader.h"
#include "registration/load/authorization_loader.h"
#include "registration/load/master_loader.h"
#include "registration/load/visit_loader.h"
#include "registration/photo/photo.h"
#include "reports/photograph.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

using ado::Statement;

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

void layOutAuthorization(FormContext& form) {
    AdditionalTab& additional = form.fields.additional;
    const bool used = form.session.globals.IsAllowOPDUpdateHMOLOA;
    additional.letterOfAuthorization.setVisible(used);
    if (!used)
        return;
    DateTime now = form.session.clock.now();
    now.second = 0; // the pickers show minutes
    for (ui::DatePicker* picker : {&additional.DateLOAInformed, &additional.TimeLOAInformed,
                                   &additional.DateLOAReceived, &additional.TimeLOAReceived})
        picker->setValue(now);
    additional.cmbLOAStatus.select(0);
    form.record.CompanyClass.clear();
}

/// Shows the parts that the hospital's settings and client code ask for.
void layOutOptionalParts(FormContext& form) {
    const Globals& globals = form.session.globals;
    PersonalTab& personal = form.fields.personal;
    const bool usesPayCodes = globals.client().usesPayCodes;
    for (ui::Control* payCode :
         std::initializer_list<ui::Control*>{&personal.lblPaycode, &personal.cmbPaycode, &personal.cmbPaycodeID})
        payCode->setVisible(usesPayCodes);
    const bool codedBarangay = globals.isAllowOPDSearchBarangay;
    personal.txtBarangay.setVisible(!codedBarangay);
    personal.txtBarangayID.setVisible(codedBarangay);
    personal.txtBarangayName.setVisible(codedBarangay);
    personal.barangay.lookup.setVisible(codedBarangay);
    layOutAuthorization(form);
    form.fields.additional.txtPictureLocation.setText(
        reports::pictureLocation(reports::pictureFolder(form.session.settings)));
    form.fields.additional.txtPictureFileName.setText("(TO BE GENERATED)");
    form.record.PhotoTaken = false;
    personal.dtpExpiration.setValue(data::GetServerDate(form.session).date());
    form.fields.additional.frmPatientType.setVisible(globals.isAllowCorvane);
    form.fields.additional.fraMAB.setVisible(globals.IsAllowOPDMABRate);
    form.fields.additional.FraPatientClass.setVisible(globals.IsAllowOPDPatientClass);
    if (globals.isAllowOPDPayCode)
        LoadPayCode(form);
}

/// True when a patient's master was loaded.
bool loadVisitAndPatient(FormContext& form) {
    if (!SearchPatient(form) || !LoadData(form))
        return false;
    LoadData2(form);
    form.fields.header.txtHospNum.setEnabled(false);
    form.fields.header.txtOPDNum.setEnabled(false);
    form.fields.buttons.cmdSave.setEnabled(true);
    if (form.session.globals.client().asksLastMenstruation) {
        form.fields.history.lastMenstruation.setVisible(true);
        loadOutProfile(form);
    }
    LoadAccountClass(form, text::trimmed(form.fields.personal.company.code.text()));
    if (form.session.globals.IsAllowOPDUpdateHMOLOA)
        LoadHMOLOA(form, form.record.AdmissionNumber);
    standByPayer(form.fields, form.session.globals.isAllowCorvane);
    return true;
}

bool loadEdit(FormContext& form) {
    const bool loaded = loadVisitAndPatient(form);
    FormButtons& buttons = form.fields.buttons;
    buttons.cmdSave.setVisible(true);
    buttons.cmdSave.setCaption("&Update");
    buttons.cmdCancel.setEnabled(true);
    buttons.cmdEndConsultation.setVisible(form.session.globals.allowEndConsultation);
    return loaded;
}

bool loadNew(FormContext& form) {
    Fields& fields = form.fields;
    Record& record = form.record;
    fields.consultation.txtBloodType.setEnabled(true);
    fields.header.txtHospNum.setText(record.HospNum);
    fields.header.txtOPDNum.setText(record.AdmissionNumber);
    fields.buttons.cmdCancel.setEnabled(true);
    fields.buttons.cmdSave.setCaption("&Register");
    data::LoadServerDate(form.session);
    data::LoadServerDate(form.session); // asked twice, as the hospitals know it
    fields.header.dtpAdmDate.setValue(form.session.globals.gServerDate);
    fields.header.txtAdmTime.setValue(form.session.globals.gServerDate);
    fields.buttons.cmdEndConsultation.setVisible(false);
    if (!record.isNewPatient()) {
        record.VisitKindCode = "O";
        LoadData(form);
        LoadAllergies(form);
        return true;
    }
    record.VisitKindCode = "N";
    fields.header.male.setSelected(true);
    fields.personal.cboCivilStatus.setText("Single");
    return false;
}

bool loadByType(FormContext& form) {
    if (form.record.isEdit())
        return loadEdit(form);
    return form.record.isNew() ? loadNew(form) : false;
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

void DisplayPatientAge(FormContext& form) {
    const std::string& birthDate = form.fields.header.txtBirthDate.text();
    constexpr std::size_t completeDate = 10;
    if (text::trimmed(birthDate).size() < completeDate)
        return;
    const ado::Recordset age =
        data::openClient(form.session, Statement("patient_data..sp_AOPD_ComputeAge '").value(birthDate).text("'"));
    if (!age.EndOfFile())
        form.fields.header.txtAge.setText(data::textOf(age, "Age"));
}

} // namespace

void loadForm(FormContext& form) {
    refuseUnsendableKeys(form.record);
    form.record.Findings.clear();
    form.record.Medications.clear();
    hideUntilNeeded(form.fields);
    form.fields.header.txtBirthDate.calendarDay = form.session.clock.now();
    layOutOptionalParts(form);
    if (!loadByType(form))
        form.fields.personal.txtNationality.setText("1");
    resolveNationality(form.fields.personal.nationality, search::CodeListing(form.session.globals.gCodeSearch));
    DisplayPatientAge(form);
    if (!form.record.isNewPatient())
        showStoredPhotograph(form);
    form.fields.tabOPD.show(0);
}

} // namespace opd::registration
