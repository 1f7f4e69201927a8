#include "base/text/folding.h"

#include "base/text/text.h"

#include <algorithm>
#include <array>

namespace opd::text {

namespace {

/// The bare letters of U+00C0 to U+00DF; a dot stands for what has none.
constexpr std::string_view latin1 = "AAAAAAACEEEEIIIIDNOOOOO.OUUUUY.S";

/// The bare letters of U+0100 to U+017F.
constexpr std::string_view extendedLatin =
    "AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIIIIIJJKKKLLLLLLLLLLNNNNNNNNN"
    "OOOOOOOORRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS";
static_assert(latin1.size() == 0x20 && extendedLatin.size() == 0x80);

constexpr std::u32string_view apostrophes = U"`´ʼʻ‘’′";

/// A character in upper case without its accent; 0 for an accent that stands by itself behind its letter.
char32_t foldedCharacter(char32_t character) {
    const char32_t capital = upper(character);
    if (capital >= 0x300 && capital <= 0x36F)
        return 0;
    if (capital >= 0xC0 && capital <= 0xDF && latin1[capital - 0xC0] != '.')
        return static_cast<char32_t>(latin1[capital - 0xC0]);
    if (capital >= 0x100 && capital <= 0x17F)
        return static_cast<char32_t>(extendedLatin[capital - 0x100]);
    return apostrophes.find(capital) != std::u32string_view::npos ? U'\'' : capital;
}

constexpr unsigned char firstBeyondAscii = 0x80;

bool isAscii(char character) {
    return static_cast<unsigned char>(character) < firstBeyondAscii;
}

/// The folded form of each character that is one byte.
const std::array<char, firstBeyondAscii>& foldedAscii() {
    static const auto table = [] {
        std::array<char, firstBeyondAscii> made{};
        for (unsigned char character = 0; character < firstBeyondAscii; ++character)
            made[character] = static_cast<char>(foldedCharacter(character));
        return made;
    }();
    return table;
}

bool isUntold(char character) {
    return character == ' ' || character == '-' || character == '.' || character == '\'';
}

} // namespace

std::string folded(std::string_view utf8) {
    const auto& ascii = foldedAscii();
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        if (!isAscii(utf8[at])) { // the rest needs to be read as characters
            for (const char32_t character : decode(utf8.substr(at)))
                if (const char32_t plain = foldedCharacter(character); plain != 0)
                    result += encode(plain);
            break;
        }
        result += ascii[static_cast<unsigned char>(utf8[at])];
    }
    return result;
}

bool holdsFolded(std::string_view utf8, std::string_view wanted) {
    if (!std::ranges::all_of(utf8, isAscii))
        return folded(utf8).find(wanted) != std::string::npos;
    const auto& ascii = foldedAscii();
    const auto same = [&ascii](char character, char folded) {
        return ascii[static_cast<unsigned char>(character)] == folded;
    };
    return wanted.empty() || std::search(utf8.begin(), utf8.end(), wanted.begin(), wanted.end(), same) != utf8.end();
}

bool beginsFolded(std::string_view utf8, std::string_view wanted) {
    if (!std::ranges::all_of(utf8, isAscii))
        return folded(utf8).starts_with(wanted);
    return holdsFolded(utf8.substr(0, wanted.size()), wanted);
}

std::string searchedName(std::string_view utf8) {
    std::string name = folded(utf8);
    std::erase_if(name, isUntold);
    return name;
}

} // namespace opd::text
