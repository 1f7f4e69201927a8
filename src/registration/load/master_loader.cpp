#include "registration/load/master_loader.h"

#include "ado/error.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/load/columns.h"
#include "registration/load/extended_loader.h"
#include "registration/load/visit_loader.h"
#include "registration/record/civil_status.h"
#include "registration/statements/queries.h"
#include "registration/subrecords/dependents.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

using data::textOf;

constexpr auto dynamic = ado::CursorType::Dynamic;
constexpr auto optimistic = ado::LockType::Optimistic;

void showBarangay(const Session& session, PersonalTab& personal, const std::string& barangay) {
    if (!session.globals.isAllowOPDSearchBarangay) {
        personal.txtBarangay.setText(barangay);
        return;
    }
    personal.txtBarangayID.setText(barangay);
    personal.txtBarangayName.setText(text::trimmed(GetBarangayName(session, text::trimmed(barangay))));
}

void showSex(Fields& fields, const std::string& sex) {
    fields.header.female.setSelected(sex == "F");
    fields.header.male.setSelected(sex == "M");
}

/// A code that stands for no status leaves the box, and is sent back as long as the box stays so.
void showCivilStatus(ui::ComboBox& box, KeptCode& kept, const std::string& code) {
    const std::string status = civilStatusOfCode(box, text::trimmed(code));
    if (!status.empty())
        box.setText(status);
    kept.keep(code, civilStatusCode(box));
}

void showMaster(const Session& session, Fields& fields, Record& record, const ado::Recordset& master) {
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
    showBarangay(session, fields.personal, textOf(master, "Barangay"));
    const DateTime birthDate = master.Fields("BirthDate").asDate();
    fields.header.txtBirthDate.setText(birthDate.isSet() ? dateText(birthDate) : std::string{});
    showSex(fields, text::upper(text::trimmed(textOf(master, "Sex"))));
    showCivilStatus(fields.personal.cboCivilStatus, record.CivilStatusKept, textOf(master, "CivilStatus"));
}

} // namespace

std::string GetBarangayName(const Session& session, const std::string& code) {
    if (!ado::isSendable(code))
        return {};
    const ado::Recordset row = data::openClient(session, statements::barangay(text::trimmed(code)));
    return row.EndOfFile() ? std::string{} : textOf(row, "Barangay");
}

bool LoadData(const Session& session, Fields& fields, Record& record) {
    const ado::Recordset& master = record.rows.ask(session, statements::master(record.HospNum), optimistic);
    if (master.RecordCount() == 0)
        return !record.isEdit();
    record.isOnFile = true;
    fields.buttons.cmdUpdate.setVisible(false);
    showMaster(session, fields, record, master);
    ui::TextBox& lastName = fields.header.txtLastName;
    if (lastName.visible())
        lastName.window().setFocus(lastName);
    LoadExtendedMaster(session, fields, record);
    LoadDependents(session, fields.employment.mshDependents, record.rows, record.HospNum);
    LoadMedicalHistory(session, fields.history, record.rows, record.HospNum);
    GetCancerPatient(session, fields.personal, record, fields.header.txtOPDNum.text());
    return true;
}

bool LoadData2(const Session& session, PersonalTab& personal, const std::string& hospNum) {
    try {
        const ado::Recordset patient =
            data::openClient(session, statements::admissionMaster(hospNum), dynamic, optimistic);
        if (patient.RecordCount() > 0)
            fill(patient, {{"NationalityID", personal.txtNationality}, {"ReligionID", personal.txtReligion}});
        return true;
    } catch (const ado::Error&) { // what the master row said stays
        return false;
    }
}

} // namespace opd::registration
