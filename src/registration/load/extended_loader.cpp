#include "registration/load/extended_loader.h"

#include "base/text/text.h"
#include "data/rows.h"
#include "registration/load/columns.h"
#include "registration/record/codes.h"
#include "registration/record/extended_texts.h"
#include "registration/statements/queries.h"

namespace opd::registration {

namespace {

using data::textOf;

void showTexts(const ExtendedTexts<Fields>& texts, const ado::Recordset& patient) {
    for (const auto& [column, box] : texts)
        if (column != nullptr)
            box.setText(textOf(patient, column));
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
void keepEmploymentCodes(const EmploymentTab& employment, Record& record, const ado::Recordset& patient) {
    const auto keep = [&](KeptCode& code, const char* column, const std::string& shown) {
        if (const int stored = numberOf(patient, column); stored >= 0)
            code.keep(std::to_string(stored), shown);
    };
    keep(record.EmploymentTypeKept, "EmploymentType", employmentTypeCode(employment));
    keep(record.EmploymentLocationKept, "EmploymentLocation", employmentLocationCode(employment));
    keep(record.PhilHealthKept, "PhilHealth", philHealthCode(employment));
}

} // namespace

void LoadExtendedMaster(const Session& session, Fields& fields, Record& record) {
    const ado::Recordset& patient =
        record.rows.ask(session, statements::extendedMaster(record.HospNum), ado::LockType::Optimistic);
    if (patient.RecordCount() <= 0)
        return;
    showTexts(peopleTexts(fields), patient);
    showTexts(employerTexts(fields), patient);
    showTexts(contactTexts(fields), patient);
    fields.personal.mobile.setText(textOf(patient, "CellNum"));
    showEmployment(fields.employment, patient);
    keepEmploymentCodes(fields.employment, record, patient);
}

void LoadMedicalHistory(const Session& session, HistoryTab& tab, LoadedRows& rows, const std::string& hospNum) {
    const ado::Recordset& history =
        rows.ask(session, statements::medicalHistory(hospNum), ado::LockType::ReadOnly, &data::openPlain);
    if (history.EndOfFile())
        return;
    const char* const conditions[] = {"Hypertension", "Diabetes",    "Hepatitis",    "Allergies",
                                      "Tubercolosis", "PepticUlcer", "BloodDisease", "BronchialAsthma"};
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
