#include "adapters/odbc/wide_text.h"

#include "base/text/text.h"

namespace opd::adapters::odbc {

namespace {

static_assert(sizeof(SQLWCHAR) == 2, "the driver manager was built for another width of characters");

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstBeyond = 0x10000; ///< the first character that takes two units

bool isHigh(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLow(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

WideText toWide(std::string_view utf8) {
    WideText result;
    result.reserve(utf8.size());
    for (const char32_t character : text::decode(utf8)) {
        if (character < firstBeyond) {
            result += static_cast<SQLWCHAR>(character);
            continue;
        }
        result += static_cast<SQLWCHAR>(0xD800 + ((character - firstBeyond) >> 10));
        result += static_cast<SQLWCHAR>(0xDC00 + ((character - firstBeyond) & 0x3FF));
    }
    return result;
}

std::string fromWide(const WideText& utf16) {
    std::u32string characters;
    characters.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const char32_t unit = utf16[i];
        if (isHigh(unit) && i + 1 < utf16.size() && isLow(utf16[i + 1]))
            characters += firstBeyond + ((unit - 0xD800) << 10) + (utf16[++i] - 0xDC00U);
        else
            characters += isHigh(unit) || isLow(unit) ? replacement : unit;
    }
    return text::encode(characters);
}

} // namespace opd::adapters::odbc
