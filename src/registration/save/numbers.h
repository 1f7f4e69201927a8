#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// Draw a number from the database into `SaveHospNum` or `SaveIDNum`. False when that failed: the clerk was told.
bool drawHospNum(FormContext& form);
bool drawOpdNumber(FormContext& form);

} // namespace opd::registration
