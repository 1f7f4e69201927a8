#include "server/wire.h"

#include "base/text/text.h"

namespace opd::testserver {

namespace {

constexpr char32_t firstBeyondOneUnit = 0x10000;
constexpr char32_t highHalf = 0xD800;
constexpr char32_t lowHalf = 0xDC00;
constexpr char32_t behindHalves = 0xE000;

/// What stands at 0x80 to 0x9F of the code page; everything else there is Latin-1.
constexpr char32_t codePageBlock[] = {0x20AC, '?',    0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, '?',    0x017D, '?',
                                      '?',    0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, '?',    0x017E, 0x0178};
constexpr char32_t blockStart = 0x80;
constexpr char32_t blockEnd = 0xA0;

char codePageByte(char32_t character) {
    if (character < blockStart || (character >= blockEnd && character <= 0xFF))
        return static_cast<char>(character);
    for (char32_t place = 0; place < std::size(codePageBlock); ++place)
        if (codePageBlock[place] == character)
            return static_cast<char>(blockStart + place);
    return '?';
}

} // namespace

std::string toUtf16(std::string_view utf8) {
    Writer units;
    for (const char32_t character : text::decode(utf8)) {
        if (character < firstBeyondOneUnit) {
            units.put(static_cast<std::uint16_t>(character));
        } else {
            const char32_t rest = character - firstBeyondOneUnit;
            units.put(static_cast<std::uint16_t>(highHalf + (rest >> 10U)));
            units.put(static_cast<std::uint16_t>(lowHalf + (rest & 0x3FFU)));
        }
    }
    return std::move(units.bytes);
}

std::string fromUtf16(std::string_view utf16) {
    std::u32string characters;
    for (Reader units(utf16); !units.atEnd();) {
        const char32_t unit = units.get<std::uint16_t>();
        const bool pairs = unit >= lowHalf && unit < behindHalves && !characters.empty() &&
                           characters.back() >= highHalf && characters.back() < lowHalf;
        if (pairs)
            characters.back() = firstBeyondOneUnit + ((characters.back() - highHalf) << 10U) + (unit - lowHalf);
        else
            characters += unit;
    }
    return text::encode(characters);
}

std::string toCodePage(std::string_view utf8) {
    std::string bytes;
    for (const char32_t character : text::decode(utf8))
        bytes += codePageByte(character);
    return bytes;
}

std::string fromCodePage(std::string_view bytes) {
    std::u32string characters;
    for (const char byte : bytes) {
        const char32_t character = static_cast<unsigned char>(byte);
        characters +=
            character >= blockStart && character < blockEnd ? codePageBlock[character - blockStart] : character;
    }
    return text::encode(characters);
}

} // namespace opd::testserver
