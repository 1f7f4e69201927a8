#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// True when the form may be saved; the codes that the save writes are then in the record. Otherwise the clerk was told
/// the first mistake and stands at it.
bool ValidateData(FormContext& form);

} // namespace opd::registration
