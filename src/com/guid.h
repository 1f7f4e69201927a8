#pragma once

#include "com/unknown.h"

#include <optional>
#include <string>
#include <string_view>

namespace opd::com {

/// The registry form of an identifier, "{00CB8F23-5680-49CB-9CB9-C463D4D9A227}".
std::string toText(const Guid& guid);

/// Reads the registry form in any letter case; nothing when the text is not of that form.
std::optional<Guid> parseGuid(std::string_view text);

} // namespace opd::com
