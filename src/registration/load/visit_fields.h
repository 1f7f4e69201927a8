#pragma once

#include "ado/recordset.h"
#include "registration/record/form_context.h"

namespace opd::registration {

/// Fills every field that a visit's row has a column for. Throws ado::Error.
void showVisit(FormContext& form, const ado::Recordset& visit);

/// Fills the allergies of the row and looks their names up. Throws ado::Error.
void showAllergies(FormContext& form, const ado::Recordset& row);

} // namespace opd::registration
