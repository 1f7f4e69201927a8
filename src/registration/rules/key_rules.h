#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds what typed characters and Enter do on the form: the window's own preview, the filters of the name boxes, and
/// the roads from one tab to the next.
void bindKeyRules(FormContext& form);

} // namespace opd::registration
