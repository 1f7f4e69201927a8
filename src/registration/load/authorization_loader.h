#pragma once

#include "registration/record/form_context.h"

#include <string>

namespace opd::registration {

/// Loads the letter of authorization of a visit; without a stored one nothing changes. The approval number is loaded
/// with the visit. Throws ado::Error.
void LoadHMOLOA(FormContext& form, const std::string& opdNumber);

} // namespace opd::registration
