#include "registration/record/record.h"

#include <array>

namespace opd::registration {

namespace {

constexpr std::array keptCodes{
    &Record::PatientTypeKept,    &Record::ConsultationTypeKept,   &Record::PerUnitKept,     &Record::SeniorKept,
    &Record::CorvaneKept,        &Record::BloodPressureKept,      &Record::CivilStatusKept, &Record::LOAStatusKept,
    &Record::EmploymentTypeKept, &Record::EmploymentLocationKept, &Record::PhilHealthKept};

} // namespace

void Record::followUnshown(const Record& storedNow) {
    rows = storedNow.rows;
    rowsTellOfDoubt = false;
    CauseofConsultationID = storedNow.CauseofConsultationID;
    Findings = storedNow.Findings;
    Medications = storedNow.Medications;
    DiagnosisID = storedNow.DiagnosisID;
    isOnFile = storedNow.isOnFile;
    for (KeptCode Record::*code : keptCodes)
        (this->*code).follow(storedNow.*code);
}

void Record::takeUnshown(const Record& storedNow) {
    followUnshown(storedNow);
    for (KeptCode Record::*code : keptCodes)
        this->*code = storedNow.*code;
}

} // namespace opd::registration
