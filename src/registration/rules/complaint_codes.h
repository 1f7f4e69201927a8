#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the chief complaint and the causes of consultation: their codes, and the buttons that list them.
void bindComplaintCodes(FormContext& form);

} // namespace opd::registration
