#include "base/text/folding.h"
#include "base/text/ranking.h"
#include "base/text/text.h"

#include <gtest/gtest.h>

#include <vector>

namespace opd::text {
namespace {

TEST(Text, UpperCaseKnowsTheLettersOfNames) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"peña", "PEÑA"},     {"josé müller", "JOSÉ MÜLLER"},
        {"åæøþ", "ÅÆØÞ"},     {"6÷2 × ß", "6÷2 × ß"},
        {"ÿ", "Ÿ"},           {"āčęğ", "ĀČĘĞ"},
        {"ĺľłń", "ĹĽŁŃ"},     {"ŋőœřšţ", "ŊŐŒŘŠŢ"},
        {"źżž", "ŹŻŽ"},       {"ĀĽŁŹŸ", "ĀĽŁŹŸ"},
        {"ıİ", "Iİ"},         {"ĸŉ", "ĸŉ"},
        {"αως", "ΑΩς"},       {"яђ", "ЯЂ"},
        {"a1-,'`", "A1-,'`"}, {"李€", "李€"},
    };
    for (const auto& [lower, expected] : cases) {
        EXPECT_EQ(upper(lower), expected);
        EXPECT_EQ(upper(expected), expected) << "changed a second time";
    }
    EXPECT_TRUE(equalsIgnoringCase("Dela Peña", "DELA PEÑA"));
    EXPECT_TRUE(equalsIgnoringCase("ıd", "ID")) << "a letter of another alphabet may have a plain capital";
    for (const auto& [one, other] : {std::pair{"pena", "peña"}, {"id", "idnum"}, {"idñ", "id"}})
        EXPECT_FALSE(equalsIgnoringCase(one, other) || equalsIgnoringCase(other, one)) << one;
}

TEST(Text, IsLookedForWithoutAccentsAndNamesWithoutTheirSigns) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"Áéñüç-ø `", "AENUC-O '"},
        {"āćďęğĥīĵķłńőřšťűŵŷž ŸÞ÷", "ACDEGHIJKLNORSTUWYZ YÞ÷"},
        {"Pen\xCC\x83"
         "a",
         "PENA"}, // an accent of its own behind the letter
        {"李 %_[", "李 %_["},
    };
    for (const auto& [written, expected] : cases)
        EXPECT_EQ(folded(written), expected);
    for (const char* name : {"O'BRIEN", "O`Brien", "OBRIEN", "O BRIEN", "O’BRIÉN", "o-brien."})
        EXPECT_EQ(searchedName(name), "OBRIEN") << name;
}

TEST(Text, RowsOfAListAreRankedByHowWellTheyAnswer) {
    const std::vector<std::vector<std::string>> cells{
        {"7", "WALK FAR"}, {"8", "FARINAS, ANA"}, {"9", "NOFAR"},        {"FAR", "SOMETHING"},
        {"10", "Fár"},     {"11", "NO-FAR LEFT"}, {"12", "FARTHER OFF"}, {"13", "O'FAR"}};
    SearchedRow row(0, 1);
    const auto read = [&](std::size_t place) -> const SearchedRow& {
        row.clear();
        for (const std::string& cell : cells[place])
            row.add(cell);
        return row;
    };
    const std::vector<std::size_t> places{0, 1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(ranked("FAR", places, read), (std::vector<std::size_t>{3, 4, 1, 6, 0, 5, 2, 7}));
    EXPECT_EQ(ranked("", places, read), places);
    EXPECT_TRUE(read(0).holds("ALK"));
    EXPECT_FALSE(read(0).holds("7WALK")) << "no text goes over two cells";
}

TEST(Text, EveryCharacterSurvivesTheWayThereAndBack) {
    for (char32_t character = 1; character <= 0x10FFFF; character += character < 0x3000 ? 1 : 251) {
        if (character >= 0xD800 && character <= 0xDFFF)
            continue;
        ASSERT_EQ(decode(encode(character)), std::u32string(1, character))
            << std::hex << static_cast<unsigned>(character);
    }
    EXPECT_EQ(encode(decode("Ñ 李 😀 a")), "Ñ 李 😀 a");
    EXPECT_EQ(length("Ñ李😀a"), 4U);
}

TEST(Text, BytesThatAreNoCharacterAreReplacedAndTheRestIsKept) {
    const std::vector<std::pair<std::string, std::u32string>> cases{
        {"a\xFFz", U"a\xFFFDz"},
        {"a\x80z", U"a\xFFFDz"},
        {"\xC3", U"\xFFFD"},   // the text ends inside a character
        {"\xC3z", U"\xFFFDz"}, // the character ends too early
        {"\xE2\x82", U"\xFFFD\xFFFD"},
        {"\xC0\xAF", U"\xFFFD\xFFFD"}, // longer than needed
        {"\xE0\x80\xAF", U"\xFFFD\xFFFD\xFFFD"},
        {"\xF0\x80\x80\xAF", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xED\xA0\x80", U"\xFFFD\xFFFD\xFFFD"},           // half of a pair
        {"\xF4\x90\x80\x80", U"\xFFFD\xFFFD\xFFFD\xFFFD"}, // beyond the last character
        {"\xF1z", U"\xFFFDz"},
    };
    for (const auto& [bytes, expected] : cases) {
        EXPECT_EQ(decode(bytes), expected) << testing::PrintToString(bytes);
        EXPECT_EQ(length(bytes), expected.size());
        EXPECT_EQ(upper(upper(bytes)), upper(bytes));
    }
}

TEST(Text, TrimmingAndReplacing) {
    EXPECT_EQ(trimmed("  a b  "), "a b");
    EXPECT_EQ(trimmed("\ta "), "\ta") << "only blanks are trimmed";
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_TRUE(isBlank("  "));
    EXPECT_FALSE(isBlank(" 0"));
    EXPECT_EQ(replaced("o'ne''il'", "'", "`"), "o`ne``il`");
    EXPECT_EQ(replaced("aaa", "aa", "a"), "aa") << "what was put in is not searched again";
    EXPECT_EQ(replaced("x", "y", "z"), "x");
}

} // namespace
} // namespace opd::text
