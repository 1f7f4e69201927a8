#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// Writes the checked form to the database: numbers, one transaction for patient and visit, then what hangs off them,
/// and tells the clerk what was registered. False when the clerk or a rule refused, and when another desk has stored
/// something into what the form was filled from (`Record::isOutdated`); true otherwise, also when no number could be
/// drawn.
/// Once the transaction is committed the form stands for the written visit, so that trying again after a later failure
/// writes the same visit and no second one. Throws ado::Error when a statement fails.
bool SaveData(Session& session, Fields& fields, Record& record, bool UpdateOnly);

} // namespace opd::registration
