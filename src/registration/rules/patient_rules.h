#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the rules of birth date, age and civil status.
void bindPatientRules(FormContext& form);

} // namespace opd::registration
