#pragma once

#include <charconv>
#include <string>

namespace opd::registration {

/// An amount as it is shown and sent: two decimals, at least one digit before the point, independent of the locale.
inline std::string amountText(double amount) {
    char digits[64];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), amount, std::chars_format::fixed, 2);
    return {digits, result.ptr};
}

} // namespace opd::registration
