#pragma once

#include <optional>
#include <string>

namespace opd::registration {

/// An amount as it is shown and sent: two decimals, at least one digit before the point, independent of the locale.
std::string amountText(double amount);

/// The amount that a clerk wrote: "1500", "1,500.75" or "1 500". Commas or blanks part the thousands, a point the one
/// or two decimals. Blank text is 0; nothing when the text is no amount.
std::optional<double> parseAmount(const std::string& text);

/// What a clerk is told about a text that is no amount.
inline constexpr const char* invalidAmount = "The LOA amount must be a number such as 1500 or 1,500.75.";

} // namespace opd::registration
