#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// Fills the freshly made form: the hospital's optional parts, then the visit and the patient by the form's type, then
/// nationality and age. Throws ado::Error.
void loadForm(FormContext& form);

} // namespace opd::registration
