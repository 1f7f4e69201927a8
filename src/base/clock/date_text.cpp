#include "base/clock/date_text.h"

#include "base/text/text.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <vector>

namespace opd {

namespace {

template <typename... Numbers> std::string formatted(const char* format, Numbers... numbers) {
    std::array<char, 64> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), format, numbers...);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::optional<int> wholeNumber(std::string_view digits) {
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || error != std::errc{} || end != digits.data() + digits.size() || value < 0)
        return std::nullopt;
    return value;
}

/// Splits "03/07/1980" into its numbers at `separator`; empty when any part is no number.
std::vector<int> numbers(std::string_view text, char separator) {
    std::vector<int> parts;
    while (true) {
        const std::size_t at = text.find(separator);
        const std::optional<int> number = wholeNumber(text.substr(0, at));
        if (!number)
            return {};
        parts.push_back(*number);
        if (at == std::string_view::npos)
            return parts;
        text.remove_prefix(at + 1);
    }
}

std::optional<DateTime> dayOf(std::string_view text) {
    const std::size_t at = text.find_first_of("/-.");
    if (at == std::string_view::npos)
        return std::nullopt;
    const std::vector<int> parts = numbers(text, text[at]);
    if (parts.size() != 3)
        return std::nullopt;
    const bool yearFirst = at == 4;
    const DateTime day = yearFirst ? DateTime{parts[0], parts[1], parts[2]} : DateTime{parts[2], parts[0], parts[1]};
    // Shorter years are refused: a clerk's "80" may be 1980 or a slip, and a birth date must not be guessed.
    return day.year >= 1000 && isValid(day) ? std::optional{day} : std::nullopt;
}

/// The number that so many digits are, or -1.
int digits(std::string_view text, std::size_t at, std::size_t count) {
    int number = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        if (text[i] < '0' || text[i] > '9')
            return -1;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

/// Reads "1980-03-07" and "1980-03-07 14:05:09", as a database keeps them and long answers are full of them.
std::optional<DateTime> storedMoment(std::string_view text) {
    constexpr std::size_t day = 10, moment = 19;
    if ((text.size() != day && text.size() != moment) || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    DateTime read{digits(text, 0, 4), digits(text, 5, 2), digits(text, 8, 2)};
    if (text.size() == moment) {
        if (text[10] != ' ' || text[13] != ':' || text[16] != ':')
            return std::nullopt;
        read.hour = digits(text, 11, 2);
        read.minute = digits(text, 14, 2);
        read.second = digits(text, 17, 2);
        if (read.hour < 0 || read.hour > 23 || read.minute < 0 || read.minute > 59 || read.second < 0 ||
            read.second > 59)
            return std::nullopt;
    }
    return read.year >= 1000 && isValid(read.date()) ? std::optional{read} : std::nullopt;
}

} // namespace

std::string dateText(const DateTime& value) {
    return formatted("%02d/%02d/%04d", value.month, value.day, value.year);
}

std::string timeText(const DateTime& value) {
    const int hour = value.hour % 12 == 0 ? 12 : value.hour % 12;
    return formatted("%02d:%02d %s", hour, value.minute, value.hour < 12 ? "AM" : "PM");
}

std::string clockText(const DateTime& value) {
    return formatted("%02d:%02d:%02d", value.hour, value.minute, value.second);
}

std::string dateTimeText(const DateTime& value) {
    return dateText(value) + " " + clockText(value);
}

std::string dottedDateText(const DateTime& value) {
    return formatted("%04d.%02d.%02d", value.year, value.month, value.day);
}

std::string sortableDateText(const DateTime& value) {
    return formatted("%04d/%02d/%02d", value.year, value.month, value.day);
}

std::string isoDateText(const DateTime& value) {
    const std::string day = formatted("%04d-%02d-%02d", value.year, value.month, value.day);
    return value == value.date() ? day : day + " " + clockText(value);
}

std::optional<DateTime> parseTime(std::string_view text) {
    std::string clock = text::upper(text::trimmed(text));
    std::optional<bool> afternoon;
    if (clock.ends_with("AM") || clock.ends_with("PM")) {
        afternoon = clock.ends_with("PM");
        clock = text::trimmed(std::string_view{clock}.substr(0, clock.size() - 2));
    }
    const std::vector<int> parts = numbers(clock, ':');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    int hour = parts[0];
    if (afternoon) {
        if (hour < 1 || hour > 12)
            return std::nullopt;
        hour = hour % 12 + (*afternoon ? 12 : 0);
    }
    const int second = parts.size() == 3 ? parts[2] : 0;
    if (hour > 23 || parts[1] > 59 || second > 59)
        return std::nullopt;
    return DateTime{0, 0, 0, hour, parts[1], second};
}

std::optional<DateTime> parseDate(std::string_view text) {
    if (const std::optional<DateTime> stored = storedMoment(text))
        return stored;
    const std::string trimmed = text::trimmed(text);
    const std::size_t blank = trimmed.find_first_of(" T");
    std::optional<DateTime> day = dayOf(std::string_view{trimmed}.substr(0, blank));
    if (!day || blank == std::string::npos)
        return day;
    const std::optional<DateTime> time = parseTime(std::string_view{trimmed}.substr(blank + 1));
    if (!time)
        return std::nullopt;
    day->hour = time->hour;
    day->minute = time->minute;
    day->second = time->second;
    return day;
}

std::optional<DateTime> parseMoment(std::string_view text) {
    const std::optional<DateTime> moment = parseDate(text);
    return moment && text::trimmed(text).find(' ') != std::string::npos ? moment : std::nullopt;
}

} // namespace opd
