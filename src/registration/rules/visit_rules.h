#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the rules of the admission date, the last menstruation period and the vital signs.
void bindVisitRules(FormContext& form);

} // namespace opd::registration
