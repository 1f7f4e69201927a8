#pragma once

#include "base/clock/date_time.h"

#include <optional>
#include <string>
#include <string_view>

namespace opd {

/// The text of an empty "##/##/####" box.
inline constexpr std::string_view blankDateText = "  /  /    ";

std::string dateText(const DateTime& value);         ///< "03/07/1980": month, day, year
std::string timeText(const DateTime& value);         ///< "02:05 PM": 12-hour clock
std::string dateTimeText(const DateTime& value);     ///< "03/07/1980 14:05:09": 24-hour clock with seconds
std::string clockText(const DateTime& value);        ///< "14:05:09": 24-hour clock with seconds
std::string dottedDateText(const DateTime& value);   ///< "1980.03.07"
std::string sortableDateText(const DateTime& value); ///< "1980/03/07", for comparing dates as text
std::string isoDateText(const DateTime& value);      ///< "1980-03-07", with " 14:05:09" when the time is not midnight

/// Reads a date as a clerk writes it: "3/7/1980", "03/07/1980", "03-07-1980" or "1980-03-07", "1980.03.07",
/// "1980/03/07", each perhaps followed by a time ("14:05", "14:05:09", "02:05 PM"). Blanks around the text are
/// ignored. Nothing when the text is no existing date.
std::optional<DateTime> parseDate(std::string_view text);

/// Reads a moment as it is given on a command line: a date and a time of day, "03/07/2026 14:05". Nothing when one of
/// them is missing or wrong.
std::optional<DateTime> parseMoment(std::string_view text);

/// Reads "02:05 PM", "2:05 pm", "14:05" or "14:05:09"; the date part of the result is not set.
std::optional<DateTime> parseTime(std::string_view text);

} // namespace opd
