#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the company account: its lookup when the field is left, and what its class and number decide.
void bindAccount(FormContext& form);

} // namespace opd::registration
