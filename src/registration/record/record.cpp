#include "registration/record/record.h"

namespace opd::registration {

void Record::followUnshown(const Record& storedNow) {
    rows = storedNow.rows;
    rowsTellOfDoubt = false;
    CauseofConsultationID = storedNow.CauseofConsultationID;
    Findings = storedNow.Findings;
    Medications = storedNow.Medications;
    DiagnosisID = storedNow.DiagnosisID;
    for (KeptCode Record::*code :
         {&Record::PatientTypeKept, &Record::ConsultationTypeKept, &Record::PerUnitKept, &Record::SeniorKept,
          &Record::CorvaneKept, &Record::BloodPressureKept, &Record::CivilStatusKept, &Record::LOAStatusKept,
          &Record::EmploymentTypeKept, &Record::EmploymentLocationKept, &Record::PhilHealthKept})
        (this->*code).follow(storedNow.*code);
}

} // namespace opd::registration
