#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// Binds "Revoke" and "Unrevoke": each changes the status of the shown visit on its own day, writes the log, and closes
/// the form. A visit with a hospital bill cannot be revoked.
void bindRevoke(FormContext& form);

} // namespace opd::registration
