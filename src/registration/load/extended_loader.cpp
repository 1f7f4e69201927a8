#include "registration/load/extended_loader.h"

#include "base/text/text.h"
#include "data/rows.h"
#include "registration/load/columns.h"
#include "registration/record/codes.h"

namespace opd::registration {

namespace {

using ado::Statement;
using data::textOf;

void showContacts(Fields& fields, const ado::Recordset& patient) {
    PersonalTab& personal = fields.personal;
    AdditionalTab& additional = fields.additional;
    EmploymentTab& employment = fields.employment;
    fill(patient, {
                      {"Email", personal.txtEmail},
                      {"CellNum", personal.mobile},
                      {"HouseHold", personal.household},
                      {"Spouse", additional.spouseName},
                      {"BarangayCaptain", personal.barangayCaptain},
                      {"Father", personal.fatherName},
                      {"FatherAddress", personal.fatherAddress},
                      {"FatherTelNum", personal.fatherTelephone},
                      {"mother", personal.motherName},
                      {"motherAddress", personal.motherAddress},
                      {"motherTelNum", personal.motherTelephone},
                      {"ContactName", personal.notifyName},
                      {"ContactAddress", personal.notifyAddress},
                      {"ContactTelNum", personal.notifyTelephone},
                      {"ContactRelation", personal.notifyRelation},
                      {"SpouseAddress", additional.spouseAddress},
                      {"SpouseTelNum", additional.spouseTelephone},
                      {"SpouseEmpName", additional.spouseEmployerName},
                      {"SpouseEmpAddress", additional.spouseEmployerAddress},
                      {"SpouseEmpTelNum", additional.spouseEmployerTelephone},
                      {"SpouseEmpFax", additional.spouseEmployerFax},
                      {"SpouseEmpEmail", additional.spouseEmployerEmail},
                      {"Position", employment.position},
                      {"Employer", employment.employerName},
                      {"EmployerTelNum", employment.employerTelephone},
                      {"EmployerAddress", employment.employerAddress},
                      {"EmployerFax", employment.employerFax},
                      {"EmployerEmail", employment.txtEmployerEmail},
                  });
}

/// The number of a column, or -1 when it is null: an option that nobody chose.
int numberOf(const ado::Recordset& patient, const char* column) {
    const ado::Value& value = patient.Fields(column);
    return value.isNull() ? -1 : static_cast<int>(value.asNumber());
}

void showEmployment(EmploymentTab& employment, const ado::Recordset& patient) {
    if (!text::isBlank(textOf(patient, "Employer")))
        employment.employedYes.setSelected(true);
    selectOption(employment.optLocation, numberOf(patient, "EmploymentLocation") - 1);
    selectOption(employment.optType, numberOf(patient, "EmploymentType") - 1);
    const int philHealth = numberOf(patient, "PhilHealth");
    employment.philHealthYes.setSelected(philHealth == 1);
    employment.philHealthNo.setSelected(philHealth == 0);
}

/// Another program may have stored codes that no option stands for.
void keepEmploymentCodes(FormContext& form, const ado::Recordset& patient) {
    const EmploymentTab& employment = form.fields.employment;
    const auto keep = [&](KeptCode& code, const char* column, const std::string& shown) {
        if (const int stored = numberOf(patient, column); stored >= 0)
            code.keep(std::to_string(stored), shown);
    };
    keep(form.record.EmploymentTypeKept, "EmploymentType", employmentTypeCode(employment));
    keep(form.record.EmploymentLocationKept, "EmploymentLocation", employmentLocationCode(employment));
    keep(form.record.PhilHealthKept, "PhilHealth", philHealthCode(employment));
}

} // namespace

void LoadExtendedMaster(FormContext& form) {
    const ado::Recordset patient = data::openClient(
        form.session, Statement("Patient_Data..sp_Adm_LoadPatient '").value(form.record.HospNum).text("'"),
        ado::CursorType::Dynamic, ado::LockType::Optimistic);
    if (patient.RecordCount() <= 0)
        return;
    showContacts(form.fields, patient);
    showEmployment(form.fields.employment, patient);
    keepEmploymentCodes(form, patient);
}

void LoadMedicalHistory(FormContext& form) {
    const ado::Recordset history = data::openPlain(
        form.session,
        Statement("Patient_Data..proc_Adm_Search_tbMasterMedicalHistory '").value(form.record.HospNum).text("'"));
    if (history.EndOfFile())
        return;
    const char* const conditions[] = {"Hypertension", "Diabetes",    "Hepatitis",    "Allergies",
                                      "Tubercolosis", "PepticUlcer", "BloodDisease", "BronchialAsthma"};
    HistoryTab& tab = form.fields.history;
    for (int n = 0; n < static_cast<int>(std::size(conditions)); ++n)
        tab.MedHistory(n).setChecked(history.Fields(conditions[n]).asNumber() == 1);
    const std::string others = textOf(history, "Others");
    if (text::isBlank(others))
        return;
    tab.others.setChecked(true);
    tab.txtMedHistory.setEnabled(true);
    tab.txtMedHistory.setText(others);
}

} // namespace opd::registration
