#include "registration/load/master_loader.h"

#include "ado/error.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/load/columns.h"
#include "registration/load/extended_loader.h"
#include "registration/load/visit_loader.h"
#include "registration/record/civil_status.h"
#include "registration/subrecords/dependents.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

using ado::Statement;
using data::textOf;

constexpr auto dynamic = ado::CursorType::Dynamic;
constexpr auto optimistic = ado::LockType::Optimistic;

void showBarangay(FormContext& form, const std::string& barangay) {
    PersonalTab& personal = form.fields.personal;
    if (!form.session.globals.isAllowOPDSearchBarangay) {
        personal.txtBarangay.setText(barangay);
        return;
    }
    personal.txtBarangayID.setText(barangay);
    personal.txtBarangayName.setText(text::trimmed(GetBarangayName(form.session, text::trimmed(barangay))));
}

void showSex(Fields& fields, const std::string& sex) {
    fields.header.female.setSelected(sex == "F");
    fields.header.male.setSelected(sex == "M");
}

/// A code that stands for no status leaves the box, and is sent back as long as the box stays so.
void showCivilStatus(FormContext& form, const std::string& code) {
    ui::ComboBox& box = form.fields.personal.cboCivilStatus;
    const std::string status = civilStatusOfCode(text::trimmed(code));
    if (!status.empty())
        box.setText(status);
    form.record.CivilStatusKept.keep(code, civilStatusCode(box.text()));
}

void showMaster(FormContext& form, const ado::Recordset& master) {
    Fields& fields = form.fields;
    fill(master, {
                     {"LastName", fields.header.txtLastName},
                     {"FirstName", fields.header.txtFirstName},
                     {"MiddleName", fields.header.txtMiddleName},
                     {"HospNum", fields.header.txtHospNum},
                     {"HouseStreet", fields.personal.txtHouseStreet},
                     {"Province", fields.personal.town.name},
                     {"ZipCode", fields.personal.txtZipCode},
                     {"Employer", fields.employment.employerName},
                     {"EmployerAddress", fields.employment.employerAddress},
                     {"EmployerTelNum", fields.employment.employerTelephone},
                     {"telnum", fields.personal.telephone},
                     {"BirthPlace", fields.personal.birthPlace},
                     {"Occupation", fields.personal.occupation},
                     {"Nationality", fields.personal.nationality.name},
                     {"Religion", fields.personal.religion.name},
                     {"BloodType", fields.consultation.txtBloodType},
                     {"NationalityID", fields.personal.txtNationality},
                     {"ReligionID", fields.personal.txtReligion},
                     {"Title", fields.header.txtTitle},
                 });
    showBarangay(form, textOf(master, "Barangay"));
    const DateTime birthDate = master.Fields("BirthDate").asDate();
    fields.header.txtBirthDate.setText(birthDate.isSet() ? dateText(birthDate) : std::string{});
    showSex(fields, text::upper(text::trimmed(textOf(master, "Sex"))));
    showCivilStatus(form, textOf(master, "CivilStatus"));
}

} // namespace

std::string GetBarangayName(const Session& session, const std::string& code) {
    if (!ado::isSendable(code))
        return {};
    const ado::Recordset row = data::openClient(
        session, Statement("Build_file..global_SearchBarangay '").value(text::trimmed(code)).text("','0'"));
    return row.EndOfFile() ? std::string{} : textOf(row, "Barangay");
}

bool LoadData(FormContext& form) {
    const ado::Recordset master = data::openClient(
        form.session, Statement("Patient_Data..sp_aopd_Load_TbMaster '").value(form.record.HospNum).text("'"), dynamic,
        optimistic);
    if (master.RecordCount() == 0)
        return !form.record.isEdit();
    form.fields.buttons.cmdUpdate.setVisible(false);
    showMaster(form, master);
    if (form.fields.header.txtLastName.visible())
        form.window.setFocus(form.fields.header.txtLastName);
    LoadExtendedMaster(form);
    LoadDependents(form);
    LoadMedicalHistory(form);
    GetCancerPatient(form);
    return true;
}

bool LoadData2(FormContext& form) {
    try {
        const ado::Recordset patient = data::openClient(
            form.session, Statement("Patient_Data..sp_adm_LoadPatient '").value(form.record.HospNum).text("'"), dynamic,
            optimistic);
        if (patient.RecordCount() > 0)
            fill(patient, {{"NationalityID", form.fields.personal.txtNationality},
                           {"ReligionID", form.fields.personal.txtReligion}});
        return true;
    } catch (const ado::Error&) { // what the master row said stays
        return false;
    }
}

} // namespace opd::registration
