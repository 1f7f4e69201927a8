#pragma once

#include "data/statement.h"
#include "registration/form_context.h"

#include <string>
#include <vector>

/// The statements that write the visit: form values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration {

/// What the patient came for, kept with the patient's history.
data::Statement updateHistory(const FormContext& form);

/// The visit itself, in the argument list of the session's client.
data::Statement updateVisit(const FormContext& form);

/// The codes of the five attending doctors, empty ones included; of a visit whose save is repeated, only those that no
/// try before has counted.
std::vector<std::string> doctorsToCount(const FormContext& form);

/// Counts one consultation of a doctor.
data::Statement countConsultation(const std::string& doctor);

/// One statement for each of the doctors 3 to 5.
std::vector<data::Statement> updateAdditionalDoctors(const FormContext& form);

data::Statement updateTreatments(const FormContext& form);
data::Statement updateWalkIn(const FormContext& form);
data::Statement updateCorvane(const FormContext& form);
data::Statement updateMabRate(const FormContext& form);
data::Statement updatePatientClass(const FormContext& form);

/// The letter of authorization of an insurer or HMO.
data::Statement saveAuthorization(const FormContext& form);

data::Statement saveProfile(const FormContext& form);

/// The log row of an edited visit.
data::Statement logEdit(const FormContext& form);

} // namespace opd::registration
