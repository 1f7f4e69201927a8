#pragma once

#include <compare>

namespace opd {

/// A civil date with a time of day, without time zone: what a database column, a date picker and a wall clock show.
/// A value whose year is 0 is "no date". Ordered by time.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;

    /// False for the default-made value that stands for "no date".
    bool isSet() const { return year != 0; }

    /// The same day at midnight.
    DateTime date() const { return {year, month, day, 0, 0, 0}; }
};

/// True when the fields name an existing day of the years 1 to 9999 and an existing time of day.
bool isValid(const DateTime& value);

/// Whole days from `from` to `to`, times of day ignored; negative when `to` lies earlier.
long daysBetween(const DateTime& from, const DateTime& to);

/// How the hospitals count years: by days.
inline constexpr double daysOfYear = 365.25;

/// Whole years of `daysOfYear` from `from` to `to`, rounded down; negative when `to` lies earlier.
int yearsBetween(const DateTime& from, const DateTime& to);

/// The day that lies `days` days after `value` (before it, when negative), at the same time of day.
DateTime addDays(const DateTime& value, long days);

} // namespace opd
