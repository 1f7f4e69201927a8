#pragma once

#include <string>

namespace opd::registration {

/// "0" for "Child", "1" "Single", "2" "Married", "3" "Widow", "4" "Separated", "5" "Divorced"; empty for other texts.
std::string civilStatusCode(const std::string& status);

/// The text of a code, empty for other codes.
std::string civilStatusOfCode(const std::string& code);

} // namespace opd::registration
