#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the simple code fields (town, nationality, religion, barangay, patient classification), and the lookup buttons
/// of every code field that is resolved when it is left.
void bindCodeLookups(FormContext& form);

/// Resolves the nationality code as leaving its field would; a code that is not found stays. Throws com::Error.
void resolveNationality(FormContext& form);

} // namespace opd::registration
