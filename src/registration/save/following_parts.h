#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// What a registration consists of behind its transaction, each part stored on its own: the extended record, the
/// dependents, the visit's marks, the photograph, logs; and between them what the clerk is told. Stops at the first
/// part that fails and throws ado::Error that names what is missing.
void writeFollowingParts(FormContext& form, bool updateOnly);

} // namespace opd::registration
