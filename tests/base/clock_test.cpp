#include "base/clock/date_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace opd {
namespace {

TEST(DateText, WritesTimesOnAClockOfTwelveHoursAndOthersWithSeconds) {
    EXPECT_EQ(dateTimeText({1980, 3, 7, 14, 5, 9}), "03/07/1980 14:05:09");
    EXPECT_EQ(isoDateText({1980, 3, 7, 14, 5, 9}), "1980-03-07 14:05:09");
    EXPECT_EQ(isoDateText({1980, 3, 7}), "1980-03-07");
    const std::vector<std::pair<int, const char*>> hours{{0, "12:05 AM"},  {1, "01:05 AM"},  {11, "11:05 AM"},
                                                         {12, "12:05 PM"}, {13, "01:05 PM"}, {23, "11:05 PM"}};
    for (const auto& [hour, expected] : hours)
        EXPECT_EQ(timeText({2026, 1, 1, hour, 5, 0}), expected);
}

TEST(DateText, ReadsWhatClerksAndDatabasesWrite) {
    const DateTime day{1980, 3, 7};
    for (const char* text :
         {"3/7/1980", "03/07/1980", "03-07-1980", "3.7.1980", "1980-03-07", "1980.03.07", "1980/3/7", "  03/07/1980 "})
        EXPECT_EQ(parseDate(text), day) << text;
    const std::vector<std::pair<const char*, DateTime>> moments{
        {"03/07/1980 14:05", {1980, 3, 7, 14, 5, 0}},
        {"03/07/1980 02:05 PM", {1980, 3, 7, 14, 5, 0}},
        {"1980-03-07 14:05:09", {1980, 3, 7, 14, 5, 9}},
        {"1980-03-07T14:05:09", {1980, 3, 7, 14, 5, 9}},
        {"2/29/2024", {2024, 2, 29}},
        {"02/29/2000", {2000, 2, 29}},
        {"12/31/9999", {9999, 12, 31}},
    };
    for (const auto& [text, expected] : moments)
        EXPECT_EQ(parseDate(text), expected) << text;
}

TEST(DateText, RefusesWhatIsNoExistingDateOrMustBeGuessed) {
    for (const char* text :
         {"",           "   ",        "  /  /    ",       "03/07/80",        "03/07/198",       "80-03-07",
          "02/29/2023", "02/29/1900", "02/30/2024",       "04/31/2026",      "13/01/1980",      "00/10/1980",
          "01/00/1980", "01/32/1980", "257/01/1980",      "01/257/1980",     "03/07",           "03/07/1980/1",
          "03/07-1980", "03//1980",   "+3/07/1980",       "-3/07/1980",      "3/7/99999999999", "3/7/10000",
          "ab/cd/efgh", "19800307",   "03/07/1980 25:00", "03/07/1980 noon", "03/07/1980 14"})
        EXPECT_EQ(parseDate(text), std::nullopt) << text;
}

TEST(DateText, ReadsTimesOfDay) {
    const std::vector<std::tuple<const char*, int, int, int>> times{
        {"02:05 PM", 14, 5, 0}, {"2:05 pm", 14, 5, 0}, {"2:05PM", 14, 5, 0},   {"12:00 AM", 0, 0, 0},
        {"12:00 PM", 12, 0, 0}, {"14:05", 14, 5, 0},   {"14:05:09", 14, 5, 9}, {" 00:00 ", 0, 0, 0},
    };
    for (const auto& [text, hour, minute, second] : times)
        EXPECT_EQ(parseTime(text), (DateTime{0, 0, 0, hour, minute, second})) << text;
    for (const char* text :
         {"", "14", "24:00", "14:60", "14:05:60", "13:00 PM", "0:30 AM", "14:05 XM", "a:b", "1:2:3:4"})
        EXPECT_EQ(parseTime(text), std::nullopt) << text;
}

TEST(Days, AreCountedAcrossMonthsLeapYearsAndClocks) {
    const std::vector<std::tuple<DateTime, DateTime, long>> cases{
        {{2024, 2, 28}, {2024, 3, 1}, 2},    {{2023, 2, 28}, {2023, 3, 1}, 1},
        {{2025, 12, 31}, {2026, 1, 1}, 1},   {{2026, 1, 1, 23, 59, 59}, {2026, 1, 2, 0, 0, 0}, 1},
        {{1900, 1, 1}, {2000, 1, 1}, 36524}, {{2026, 5, 5}, {2026, 5, 5}, 0},
    };
    for (const auto& [from, to, days] : cases) {
        EXPECT_EQ(daysBetween(from, to), days);
        EXPECT_EQ(daysBetween(to, from), -days);
        EXPECT_EQ(addDays(from.date(), days), to.date());
    }
    EXPECT_EQ(addDays({2024, 3, 1, 8, 30, 0}, -1), (DateTime{2024, 2, 29, 8, 30, 0}));
}

} // namespace
} // namespace opd
