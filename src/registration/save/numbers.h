#pragma once

#include "session/session.h"

#include <optional>
#include <string>

namespace opd::registration {

/// Draw a number from the database. Nothing when that failed: the clerk was told.
std::optional<std::string> drawHospNum(const Session& session);
std::optional<std::string> drawOpdNumber(const Session& session);

} // namespace opd::registration
