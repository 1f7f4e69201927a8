#pragma once

#include "ado/statement.h"
#include "registration/record/form_context.h"

#include <string>
#include <vector>

/// The statements that write the visit: form values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration {

/// What the patient came for, kept with the patient's history.
ado::Statement updateHistory(const FormContext& form);

/// The visit itself, in the argument list of the session's client.
ado::Statement updateVisit(const FormContext& form);

/// The codes of the five attending doctors, empty ones included; of a visit whose save is repeated, only those that no
/// try before has counted.
std::vector<std::string> doctorsToCount(const FormContext& form);

/// Counts one consultation of a doctor.
ado::Statement countConsultation(const std::string& doctor);

/// One statement for each of the doctors 3 to 5.
std::vector<ado::Statement> updateAdditionalDoctors(const FormContext& form);

ado::Statement updateTreatments(const FormContext& form);
ado::Statement updateWalkIn(const FormContext& form);
ado::Statement updateCorvane(const FormContext& form);
ado::Statement updateMabRate(const FormContext& form);
ado::Statement updatePatientClass(const FormContext& form);

/// The letter of authorization of an insurer or HMO.
ado::Statement saveAuthorization(const FormContext& form);

ado::Statement saveProfile(const FormContext& form);

/// The log row of an edited visit.
ado::Statement logEdit(const FormContext& form);

} // namespace opd::registration
