#include "base/text/folding.h"

#include "base/text/text.h"

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

bool isUntold(char character) {
    return character == ' ' || character == '-' || character == '.' || character == '\'';
}

} // namespace

std::string folded(std::string_view utf8) {
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        if (static_cast<unsigned char>(utf8[at]) >= 0x80) { // the rest needs to be read as characters
            for (const char32_t character : decode(utf8.substr(at)))
                if (const char32_t plain = foldedCharacter(character); plain != 0)
                    result += encode(plain);
            break;
        }
        result += static_cast<char>(foldedCharacter(static_cast<char32_t>(utf8[at])));
    }
    return result;
}

std::string searchedName(std::string_view utf8) {
    std::string name = folded(utf8);
    std::erase_if(name, isUntold);
    return name;
}

} // namespace opd::text
