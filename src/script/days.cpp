#include "script/days.h"

#include "base/clock/date_text.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>

namespace opd::script {

namespace {

constexpr std::string_view opening = "{today";

/// The number of days in "-2" or "+30"; an empty text is none.
long daysOf(std::string_view text) {
    long days = 0;
    if (text.empty())
        return days;
    const bool isSigned = text.front() == '+' || text.front() == '-';
    const std::string_view digits = text.substr(1);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), days);
    if (!isSigned || digits.starts_with('-') || error != std::errc{} || end != digits.data() + digits.size())
        throw std::runtime_error("{today" + std::string{text} + "} is no day; {today}, {today-2} and {today+30} are");
    return text.front() == '-' ? -days : days;
}

} // namespace

std::string withDays(const std::string& word, const DateTime& today) {
    std::string text = word;
    for (std::size_t at = 0; (at = text.find(opening, at)) != std::string::npos;) {
        const std::size_t behind = at + opening.size();
        const std::size_t end = std::min(text.find('}', behind), text.size());
        const std::string day = dateText(addDays(today, daysOf(std::string_view{text}.substr(behind, end - behind))));
        text.replace(at, end + 1 - at, day);
        at += day.size();
    }
    return text;
}

} // namespace opd::script
