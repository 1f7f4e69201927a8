#include "base/clock/date_time.h"

#include <chrono>
#include <cmath>

namespace opd {

namespace {

std::chrono::year_month_day calendarDay(const DateTime& value) {
    return std::chrono::year{value.year} / std::chrono::month{static_cast<unsigned>(value.month)} /
           std::chrono::day{static_cast<unsigned>(value.day)};
}

} // namespace

bool isValid(const DateTime& value) {
    // Bounded here, as the calendar's own types hold a byte of each and would take month 257 for January.
    if (value.year < 1 || value.year > 9999 || value.month < 1 || value.month > 12 || value.day < 1 || value.day > 31)
        return false;
    if (value.hour < 0 || value.hour > 23 || value.minute < 0 || value.minute > 59 || value.second < 0 ||
        value.second > 59)
        return false;
    return calendarDay(value).ok();
}

long daysBetween(const DateTime& from, const DateTime& to) {
    return (std::chrono::sys_days{calendarDay(to)} - std::chrono::sys_days{calendarDay(from)}).count();
}

int yearsBetween(const DateTime& from, const DateTime& to) {
    return static_cast<int>(std::floor(static_cast<double>(daysBetween(from, to)) / daysOfYear));
}

DateTime addDays(const DateTime& value, long days) {
    const std::chrono::year_month_day moved{std::chrono::sys_days{calendarDay(value)} + std::chrono::days{days}};
    return {static_cast<int>(moved.year()),
            static_cast<int>(static_cast<unsigned>(moved.month())),
            static_cast<int>(static_cast<unsigned>(moved.day())),
            value.hour,
            value.minute,
            value.second};
}

} // namespace opd
