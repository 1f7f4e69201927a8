#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds who pays: insurance, plan, account, patient type, pay code, senior citizen, purposes and programmes.
void bindPayerRules(FormContext& form);

/// After loading: the payer's fields stand as if what they show had been clicked, with every loaded value untouched.
void standByPayer(FormContext& form);

} // namespace opd::registration
