#include "registration/record/civil_status.h"

#include <array>

namespace opd::registration {

namespace {

/// The position of a status is its code.
constexpr std::array<const char*, 6> statuses{"Child", "Single", "Married", "Widow", "Separated", "Divorced"};

} // namespace

std::string civilStatusCode(const std::string& status) {
    for (std::size_t code = 0; code < statuses.size(); ++code)
        if (status == statuses[code])
            return std::to_string(code);
    return {};
}

std::string civilStatusOfCode(const std::string& code) {
    return code.size() == 1 && code[0] >= '0' && code[0] <= '5' ? statuses[static_cast<std::size_t>(code[0] - '0')]
                                                                : "";
}

} // namespace opd::registration
