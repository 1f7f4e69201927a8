#pragma once

#include <charconv>
#include <string_view>

namespace opd::text {

/// The number at the start of a text ("120/80" is 120, " 36.5 C" is 36.5), 0 when there is none. Independent of the
/// workstation's locale.
inline double leadingNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" +");
    if (start == std::string_view::npos)
        return 0;
    // from_chars would also take "INF" and "NAN"; only what begins with a digit, a point or a sign is a number here.
    text.remove_prefix(start);
    text = text.substr(0, text.find_first_not_of("-.0123456789"));
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace opd::text
