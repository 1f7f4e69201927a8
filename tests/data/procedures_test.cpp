#include "support/test_session.h"

#include "ado/statement.h"
#include "base/text/leading_number.h"
#include "data/procedures/dates.h"
#include "data/procedures/eligibility.h"
#include "data/procedures/key_filters.h"

#include <gtest/gtest.h>

namespace opd::tests {

namespace {

TEST(Statement, KeepsValuesOutOfItsStructure) {
    EXPECT_EQ(ado::Statement("p '").values({"A", "%_[x];--", "Ñ"}, "', '").text("',").number(-3).str(),
              "p 'A', '%_[x];--', 'Ñ',-3");
    for (const char* value : {"'", "O'NEIL", "x' or '1'='1", "''"})
        EXPECT_THROW(ado::Statement("p '").value(value), ado::Error) << value;
    EXPECT_EQ(ado::Statement("p ").bareWord("00000012").str(), "p 00000012");
    const auto filledIn = [](const char* text, const char* value) {
        return ado::Statement::fromOutside(text, "{", "}", [value](const std::string&) { return value; }).str();
    };
    EXPECT_EQ(filledIn("p '{a}', 'it''s {a}', {a}", "X-1"), "p 'X-1', 'it''s X-1', X-1");
    EXPECT_EQ(filledIn("p '{a} {a}'", "1 or 1=1"), "p '1 or 1=1 1 or 1=1'");
    for (const char* word : {"", "1 2", "1,2", "1'", "a;b", "1--"}) {
        EXPECT_THROW(ado::Statement("p ").bareWord(word), ado::Error) << word;
        EXPECT_THROW(filledIn("p '', {a}", word), ado::Error) << word;
    }
    EXPECT_THROW(filledIn("p '{a}'", "'"), ado::Error);
    EXPECT_THROW(filledIn("p '{a'", "1"), ado::Error);
}

TEST(KeyFilters, KeepWhatBelongsAndDropTheRest) {
    for (const auto& [typed, kept] : std::vector<std::pair<char32_t, char32_t>>{
             {U'z', U'Z'}, {U'Ñ', U'Ñ'}, {U'.', U'.'}, {U' ', 0}, {U'-', 0}, {8, 8}, {9, 9}, {27, 27}, {1, 0}})
        EXPECT_EQ(data::FilterKeyByChars(data::NameCharacters(), typed), kept) << static_cast<unsigned>(typed);
    TestDesktop desktop;
    EXPECT_EQ(data::FilterKeyInSet(desktop, U'7', "1234567890-", true), U'7');
    EXPECT_EQ(data::FilterKeyInSet(desktop, ui::key::backspace, "1234567890-", true), ui::key::backspace);
    EXPECT_EQ(desktop.beeps, 0);
    EXPECT_EQ(data::FilterKeyInSet(desktop, ui::key::backspace, "1234567890-", false), 0U);
    EXPECT_EQ(data::FilterKeyInSet(desktop, U'x', "1234567890-", true), 0U);
    EXPECT_EQ(desktop.beeps, 2);
}

TEST(Dates, RangesAndAgesFollowTheServer) {
    const struct {
        const char* date;
        const char* lower;
        const char* upper;
        bool blankAllowed;
        bool expected;
    } ranges[] = {{"  /  /    ", "", "", true, true},
                  {"  /  /    ", "", "", false, false},
                  {"", "", "", true, true},
                  {"02/30/2000", "", "True", true, false},
                  {"03/07/1980", "", "True", true, true},
                  {"03/07/1980", "03/08/1980", "", false, false},
                  {"03/07/1980", "no date", "03/07/1980", false, true},
                  {"03/08/1980", "", "03/07/1980", false, false}};
    for (const auto& range : ranges)
        EXPECT_EQ(data::IsDateInRange(range.date, range.lower, range.upper, range.blankAllowed), range.expected)
            << range.date << " " << range.lower << " " << range.upper;

    TestSession desk; // the server stands at 11/24/2026
    const std::pair<const char*, int> ages[] = {{"11/24/2025", 0},  {"11/23/2025", 1}, {"11/24/2026", 0},
                                                {"11/25/2026", -1}, {"", 0},           {"x", 0}};
    for (const auto& [born, age] : ages)
        EXPECT_EQ(data::ComputeAge(desk.session, born, "01/01/1900"), age) << born;

    // An empty settings table leads to the second question; a failing server keeps the date of before.
    desk.globals.gServerDate = {2020, 1, 1, 0, 0, 0};
    desk.provider->answer("select GETDATE() AS Tdate", oneRow({{"Tdate", DateTime{2026, 5, 6, 7, 8, 9}}}));
    data::LoadServerDate(desk.session);
    EXPECT_EQ(desk.globals.gServerDate, (DateTime{2026, 5, 6, 7, 8, 9}));
    desk.provider->failOn("Select GetDate()", "gone");
    data::LoadServerDate(desk.session);
    EXPECT_EQ(desk.globals.gServerDate, (DateTime{2026, 5, 6, 7, 8, 9}));
}

TEST(Eligibility, SexGoesBeforeAgeAndOnlyTheYoungMotherIsAskedAbout) {
    const char* const male = "Cannot use this service for male patient...";
    const char* const newborn = "Patient's age indicates that Newborn is not a valid service...";
    const char* const pediatrics = "Patient's age indicates that Pediatrics is not a valid service...";
    const char* const obstetrics =
        "Patient's age indicates that this is a Pediatric case. Are you sure this is an obsteric case?";
    const struct {
        const char* service;
        const char* sex;
        const char* age;
        const char* message;
        ui::Answer answer;
        bool expected;
    } cases[] = {
        {"9", "M", "30", male, ui::Answer::Ok, false},        {"16", "M", "3", male, ui::Answer::Ok, false},
        {"9", "F", "30", nullptr, ui::Answer::Ok, true},      {"13", "F", "0", nullptr, ui::Answer::Ok, true},
        {"13", "F", "1", newborn, ui::Answer::Ok, false},     {"14", "M", "15", nullptr, ui::Answer::Ok, true},
        {"14", "M", "16", pediatrics, ui::Answer::Ok, false}, {"16", "F", "15", nullptr, ui::Answer::Ok, true},
        {"16", "F", "14", obstetrics, ui::Answer::Yes, true}, {"16", "F", "14", obstetrics, ui::Answer::No, false},
        {"ABC", "M", "", nullptr, ui::Answer::Ok, true}};
    for (const auto& entry : cases) {
        TestDesktop desktop;
        if (entry.message != nullptr)
            desktop.answer(entry.answer);
        EXPECT_EQ(data::CheckServiceEligibility(desktop, entry.service, entry.sex, entry.age), entry.expected)
            << entry.service << entry.sex << entry.age;
        EXPECT_EQ(desktop.messages.empty() ? std::string{"none"} : desktop.messages.back().text,
                  entry.message == nullptr ? "none" : entry.message);
    }
    std::string text = "  ";
    data::AppendMessageLine(text, "one");
    data::AppendMessageLine(text, "two");
    EXPECT_EQ(text, "one\r\ntwo");
}

TEST(LeadingNumber, ReadsTheStartAndNothingElse) {
    const std::pair<const char*, double> cases[] = {{"120/80", 120}, {" 36.5 C", 36.5}, {"", 0},    {"abc", 0},
                                                    {"-4", -4},      {"+7", 7},         {"inf", 0}, {"1e3", 1}};
    for (const auto& [text, number] : cases)
        EXPECT_DOUBLE_EQ(text::leadingNumber(text), number) << text;
}

} // namespace
} // namespace opd::tests
