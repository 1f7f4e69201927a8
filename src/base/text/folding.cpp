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

/// What else than itself a folded character of one byte was before.
char unfolded(char character) {
    if (character >= 'A' && character <= 'Z')
        return static_cast<char>(character + 32);
    return character == '\'' ? '`' : character;
}

/// True when plain letters, folded, begin with what is folded already and no longer than they are.
bool standsAt(std::string_view plain, std::string_view wanted) {
    const auto& ascii = foldedAscii();
    return std::equal(wanted.begin(), wanted.end(), plain.begin(), [&ascii](char folded, char character) {
        return ascii[static_cast<unsigned char>(character)] == folded;
    });
}

bool isUntold(char character) {
    return character == ' ' || character == '-' || character == '.' || character == '\'';
}

} // namespace

void appendFolded(std::string& text, std::string_view utf8) {
    const auto& ascii = foldedAscii();
    const std::size_t plain = plainBeginning(utf8);
    const std::size_t before = text.size();
    text.resize(before + plain);
    for (std::size_t at = 0; at < plain; ++at)
        text[before + at] = ascii[static_cast<unsigned char>(utf8[at])];
    if (plain == utf8.size())
        return;
    for (const char32_t character : decode(utf8.substr(plain))) // the rest needs to be read as characters
        if (const char32_t letter = foldedCharacter(character); letter != 0)
            text += encode(letter);
}

std::string folded(std::string_view utf8) {
    std::string result;
    appendFolded(result, utf8);
    return result;
}

bool holdsFolded(std::string_view utf8, std::string_view wanted) {
    if (plainBeginning(utf8) != utf8.size())
        return folded(utf8).find(wanted) != std::string::npos;
    if (wanted.empty() || wanted.size() > utf8.size())
        return wanted.empty();
    // Most texts do not hold the first letter often: the places where it stands are found first, however it is written.
    const auto places = [utf8, room = utf8.size() - wanted.size() + 1](char letter) {
        return [utf8, room, letter](std::size_t from) {
            return std::min(utf8.substr(0, room).find(letter, from), utf8.size());
        };
    };
    const auto asItIs = places(wanted.front());
    const auto otherwise = places(unfolded(wanted.front()));
    std::size_t one = asItIs(0), other = otherwise(0);
    while (one < utf8.size() || other < utf8.size()) {
        const std::size_t at = std::min(one, other);
        if (standsAt(utf8.substr(at), wanted))
            return true;
        (one < other ? one : other) = one < other ? asItIs(at + 1) : otherwise(at + 1);
    }
    return false;
}

bool beginsFolded(std::string_view utf8, std::string_view wanted) {
    if (plainBeginning(utf8) != utf8.size())
        return folded(utf8).starts_with(wanted);
    return wanted.size() <= utf8.size() && standsAt(utf8, wanted);
}

std::string searchedName(std::string_view utf8) {
    std::string name = folded(utf8);
    std::erase_if(name, isUntold);
    return name;
}

} // namespace opd::text
