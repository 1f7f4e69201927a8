#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// Fills the freshly made form: the hospital's optional parts, then the visit and the patient by the form's type, then
/// nationality and age. Throws ado::Error.
void loadForm(Session& session, Fields& fields, Record& record);

} // namespace opd::registration
