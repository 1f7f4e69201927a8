#pragma once

#include <array>
#include <string_view>

/// Codes of the reference files that generated patients and visits draw from.
namespace opd::demonstration {

inline constexpr std::array<std::string_view, 12> townCodes{"1000", "1100", "1200", "1300", "1550", "1600",
                                                            "1700", "1740", "1770", "1800", "4000", "3000"};
inline constexpr std::array<std::string_view, 10> serviceCodes{"1", "2", "3", "4", "5", "6", "7", "10", "11", "12"};
inline constexpr int doctorCount = 40;

} // namespace opd::demonstration
