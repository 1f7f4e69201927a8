#pragma once

#include "ado/recordset.h"
#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// Fills every field that a visit's row has a column for. Throws ado::Error.
void showVisit(const Session& session, Fields& fields, Record& record, const ado::Recordset& visit);

/// Fills the allergies of the row and looks their names up. Throws ado::Error.
void showAllergies(const Session& session, HistoryTab& history, Record& record, const ado::Recordset& row);

} // namespace opd::registration
