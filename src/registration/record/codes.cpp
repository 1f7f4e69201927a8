#include "registration/record/codes.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "data/rows.h"

namespace opd::registration {

namespace {

/// The position, counted from 1, of the selected option; 0 when none is.
std::string selectedPosition(const ui::ControlArray<ui::OptionButton>& options, int count) {
    for (int n = 0; n < count; ++n)
        if (options(n).selected())
            return std::to_string(n + 1);
    return "0";
}

std::string patientTypeCode(const Fields& fields) {
    return fields.personal.chkPatientType.checked() ? "W" : "C";
}

std::string corvaneCode(const Fields& fields) {
    return bit(fields.additional.corvanePatient.selected());
}

} // namespace

std::string purposeCode(const Fields& fields) {
    if (fields.personal.purposeRicu.checked())
        return "R";
    return fields.personal.purposeHema.checked() ? "H" : "";
}

std::string perUnitCode(const Fields& fields) {
    const auto& units = fields.consultation.units;
    for (std::size_t n = 0; n < units.size(); ++n)
        if (units[n]->selected())
            return std::to_string(n + 1);
    return {};
}

std::string seniorCode(const Fields& fields) {
    return bit(fields.personal.chkSeniorCitizen.checked());
}

std::string pressureText(const Fields& fields) {
    const ConsultationTab& consultation = fields.consultation;
    return text::trimmed(consultation.systolic.text()) + "/" + text::trimmed(consultation.diastolic.text());
}

std::string admDateTime(const Fields& fields) {
    return dateText(fields.header.dtpAdmDate.value()) + " " + timeText(fields.header.txtAdmTime.value());
}

std::string savedVisit(const Record& record) {
    return text::upper(record.SaveIDNum) + "B";
}

bool isInProgramme(const PersonalTab& personal) {
    return personal.chkChemo.checked() || personal.chkRTherapy.checked() || personal.chkHemo.checked() ||
           personal.chkforDeposit.checked();
}

void keepCodes(const Fields& fields, Record& record, const ado::Recordset& visit) {
    const auto stored = [&](const char* column) { return data::textOf(visit, column); };
    record.PatientTypeKept.keep(stored("PatientType"), patientTypeCode(fields));
    record.PerUnitKept.keep(stored("PerUnit"), perUnitCode(fields));
    record.BloodPressureKept.keep(stored("BloodPressure"), pressureText(fields));
    if (!fields.consultation.withBill.selected())
        record.ConsultationTypeKept.keep(stored("ConsultationType"), purposeCode(fields));
    if (const std::string senior = stored("SeniorCitizenID"); !text::isBlank(senior))
        record.SeniorKept.keep(senior, seniorCode(fields));
    if (data::hasColumn(visit, "Corvane"))
        record.CorvaneKept.keep(bit(visit.Fields("Corvane").asFlag()), corvaneCode(fields));
}

void computeKeptCodes(const Fields& fields, Record& record) {
    const PersonalTab& personal = fields.personal;
    if (personal.chkPatientType.value() < 2)
        record.PatientTypeCode = record.PatientTypeKept.sent(patientTypeCode(fields));
    record.CorvanePatientCode = record.CorvaneKept.sent(corvaneCode(fields));
    record.HemoCode = bit(personal.chkHemo.checked());
}

std::string employmentTypeCode(const EmploymentTab& employment) {
    return selectedPosition(employment.optType, 3);
}

std::string employmentLocationCode(const EmploymentTab& employment) {
    return selectedPosition(employment.optLocation, 2);
}

std::string philHealthCode(const EmploymentTab& employment) {
    return bit(employment.philHealthYes.selected());
}

} // namespace opd::registration
