#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds who pays: insurance, plan, account, patient type, pay code, senior citizen, purposes and programmes.
void bindPayerRules(FormContext& form);

} // namespace opd::registration
