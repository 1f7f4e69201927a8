#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// What a registration consists of behind its transaction, each part stored on its own: the extended record, the
/// dependents, the visit's marks, the photograph, logs; and between them what the clerk is told. Stops at the first
/// part that fails and throws ado::Error that names what is missing. Where the visit `mayBeRevoked` by another desk,
/// that is asked before the status is written.
void writeFollowingParts(Session& session, Fields& fields, const Record& record, bool updateOnly, bool mayBeRevoked);

} // namespace opd::registration
