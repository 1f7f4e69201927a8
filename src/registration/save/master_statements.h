#pragma once

#include "ado/statement.h"
#include "registration/record/form_context.h"

/// The statements that write the patient: form values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration {

/// The patient master, in the argument list of the session's client.
ado::Statement updateMaster(const FormContext& form);

ado::Statement saveAllergies(const FormContext& form);

/// Contacts, spouse, parents, employment and social insurance. Quotes in most of its values become grave accents.
ado::Statement updateExtendedMaster(const FormContext& form);

ado::Statement updateMedicalHistory(const FormContext& form);

} // namespace opd::registration
