#pragma once

#include "ui/controls.h"

#include <string>

namespace opd::registration {

/// The code of the civil status that the list shows, its place in it: "0" for "Child" to "5" for "Divorced"; empty for
/// a text that is no entry.
std::string civilStatusCode(const ui::ComboBox& statuses);

/// The entry of a code, empty for other codes.
std::string civilStatusOfCode(const ui::ComboBox& statuses, const std::string& code);

} // namespace opd::registration
