#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the simple code fields (town, nationality, religion, barangay, patient classification), and the lookup buttons
/// of every code field that is resolved when it is left.
void bindCodeLookups(FormContext& form);

/// Resolves the nationality code where it is an exact one, without a window or a message; any other stays as it is,
/// with the name that is stored for it. Throws com::Error.
void resolveNationality(FormContext& form);

} // namespace opd::registration
