#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the code fields that the code search component resolves when they are left, with their lookup buttons: town,
/// nationality, religion.
void bindCodeLookups(FormContext& form);

/// Resolves the nationality code as leaving its field would; a code that is not found stays. Throws com::Error.
void resolveNationality(FormContext& form);

} // namespace opd::registration
