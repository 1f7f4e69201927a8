#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// Loads the patient master of `HospNum` with everything that hangs off it. False only when there is no master row and
/// the form is in "Edit". Throws ado::Error.
bool LoadData(const Session& session, Fields& fields, Record& record);

/// Reads the nationality and religion codes again from the admission-side record. False, and nothing else, when a
/// statement fails.
bool LoadData2(const Session& session, PersonalTab& personal, const std::string& hospNum);

/// The name of a barangay, empty when the code is unknown. Throws ado::Error.
std::string GetBarangayName(const Session& session, const std::string& code);

} // namespace opd::registration
