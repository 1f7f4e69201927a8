#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// Loads the letter of authorization of a visit; without a stored one nothing changes. The approval number is loaded
/// with the visit. Throws ado::Error.
void LoadHMOLOA(const Session& session, AdditionalTab& additional, Record& record, const std::string& opdNumber);

/// Has the pickers of a letter's moments say where no moment is stored. It stays unknown until the clerk sets a picker.
void tellUnknownMoments(AdditionalTab& additional, Record& record);

} // namespace opd::registration
