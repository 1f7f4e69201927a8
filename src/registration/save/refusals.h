#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// What may forbid a save of a checked form: a namesake of the same age whom the clerk does not want twice, a patient
/// who is confined, a missing patient class, an apostrophe that the clerk does not want changed. False when the clerk
/// or a rule refused: the clerk was told, and the form is closed where it has no more use. Throws ado::Error, also when
/// the form shows other numbers than it was opened for.
bool maySave(Session& session, Fields& fields, const Record& record, bool updateOnly);

/// The hospital number that the form shows, or "NEW".
std::string shownHospNum(const HeaderFields& header);

} // namespace opd::registration
