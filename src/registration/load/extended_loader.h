#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// Loads contacts, spouse, parents, employment and social insurance of `HospNum`. Throws ado::Error.
void LoadExtendedMaster(FormContext& form);

/// Loads the medical history of `HospNum`; without a stored one nothing changes. Throws ado::Error.
void LoadMedicalHistory(FormContext& form);

} // namespace opd::registration
