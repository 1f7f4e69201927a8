#pragma once

#include "registration/form_context.h"

#include <string>

namespace opd::registration {

/// Binds the coded clinical fields: services, doctors, allergies, chief complaint, causes of consultation.
void bindClinicalCodes(FormContext& form);

/// Looks a chief complaint up by its exact code and keeps it in the record; false when there is none. Throws
/// ado::Error.
bool Search_ChiefComplaint(FormContext& form, const std::string& code);

} // namespace opd::registration
