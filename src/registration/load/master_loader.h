#pragma once

#include "registration/record/form_context.h"

#include <string>

namespace opd::registration {

/// Loads the patient master of `HospNum` with everything that hangs off it. False only when there is no master row and
/// the form is in "Edit". Throws ado::Error.
bool LoadData(FormContext& form);

/// Reads the nationality and religion codes again from the admission-side record. False, and nothing else, when a
/// statement fails.
bool LoadData2(FormContext& form);

/// The name of a barangay, empty when the code is unknown. Throws ado::Error.
std::string GetBarangayName(const Session& session, const std::string& code);

} // namespace opd::registration
