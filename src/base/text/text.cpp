#include "base/text/text.h"

#include "base/text/plain.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace opd::text {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

/// How many bytes the character takes that begins with this byte; 0 when no character begins so.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// False for a character that fewer bytes would hold, a half of a pair, and one beyond the last.
bool isInShortestForm(char32_t character, std::size_t bytes) {
    if (bytes == 3)
        return character >= 0x800 && (character < 0xD800 || character > 0xDFFF);
    return bytes != 4 || (character >= 0x10000 && character <= 0x10FFFF);
}

/// The character at `at`, which moves behind it.
char32_t next(std::string_view utf8, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t bytes = sequenceLength(lead);
    if (bytes == 1) {
        ++at;
        return lead;
    }
    if (bytes == 0 || at + bytes > utf8.size()) {
        ++at;
        return replacementCharacter;
    }
    char32_t character = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[at + i]);
        if ((byte & 0xC0U) != 0x80U) {
            ++at;
            return replacementCharacter;
        }
        character = (character << 6U) | (byte & 0x3FU);
    }
    if (!isInShortestForm(character, bytes)) {
        ++at;
        return replacementCharacter;
    }
    at += bytes;
    return character;
}

} // namespace

// Eight are looked at at a time.
std::size_t plainBeginning(std::string_view utf8) {
    constexpr std::uint64_t beyondAscii = 0x8080808080808080;
    std::size_t at = 0;
    for (std::uint64_t eight = 0; at + sizeof eight <= utf8.size(); at += sizeof eight) {
        std::memcpy(&eight, utf8.data() + at, sizeof eight);
        if ((eight & beyondAscii) != 0)
            break;
    }
    while (at < utf8.size() && isPlain(utf8[at]))
        ++at;
    return at;
}

std::string trimmed(std::string_view utf8) {
    return std::string{withoutBlanks(utf8)};
}

char32_t upper(char32_t character) {
    if (character < 0x80)
        return character >= U'a' && character <= U'z' ? character - 32 : character;
    if (character >= 0xE0 && character <= 0xFE && character != 0xF7)
        return character - 32;
    if (character == 0xFF)
        return 0x178;
    // Latin Extended-A pairs: the capital is even in two runs and odd in the other two.
    if ((character >= 0x100 && character <= 0x137) || (character >= 0x14A && character <= 0x177))
        return character == 0x131 ? U'I' : character & ~char32_t{1};
    if ((character >= 0x139 && character <= 0x148) || (character >= 0x179 && character <= 0x17E))
        return (character & 1U) != 0 ? character : character - 1;
    if ((character >= 0x3B1 && character <= 0x3C9 && character != 0x3C2) || (character >= 0x430 && character <= 0x44F))
        return character - 32;
    if (character >= 0x450 && character <= 0x45F)
        return character - 80;
    return character;
}

std::u32string decode(std::string_view utf8) {
    std::u32string characters;
    characters.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();)
        characters.push_back(next(utf8, at));
    return characters;
}

std::string encode(char32_t character) {
    if (character < 0x80)
        return {static_cast<char>(character)};
    const auto tail = [character](unsigned shift) { return static_cast<char>(0x80U | ((character >> shift) & 0x3FU)); };
    if (character < 0x800)
        return {static_cast<char>(0xC0U | (character >> 6U)), tail(0)};
    if (character < 0x10000)
        return {static_cast<char>(0xE0U | (character >> 12U)), tail(6), tail(0)};
    return {static_cast<char>(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
}

std::string encode(std::u32string_view characters) {
    std::string utf8;
    utf8.reserve(characters.size());
    for (const char32_t character : characters)
        utf8 += encode(character);
    return utf8;
}

std::string upper(std::string_view utf8) {
    const std::size_t plain = plainBeginning(utf8);
    std::string result(utf8.substr(0, plain));
    std::transform(result.begin(), result.end(), result.begin(), plainUpper);
    for (std::size_t at = plain; at < utf8.size();)
        result += encode(upper(next(utf8, at)));
    return result;
}

std::size_t length(std::string_view utf8) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < utf8.size(); ++count)
        next(utf8, at);
    return count;
}

// Columns are looked up by their names with this, many times for a form.
bool equalsIgnoringCase(std::string_view left, std::string_view right) {
    const std::size_t size = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < size; ++at) {
        if (!isPlain(left[at]) || !isPlain(right[at])) // the rest needs to be read as characters
            return upper(left.substr(at)) == upper(right.substr(at));
        if (left[at] != right[at] && plainUpper(left[at]) != plainUpper(right[at]))
            return false;
    }
    return left.size() == right.size();
}

std::string replaced(std::string_view utf8, std::string_view from, std::string_view to) {
    std::string result;
    std::size_t start = 0;
    for (std::size_t at = utf8.find(from); at != std::string_view::npos; at = utf8.find(from, start)) {
        result.append(utf8.substr(start, at - start)).append(to);
        start = at + from.size();
    }
    return result.append(utf8.substr(start));
}

std::string joined(const std::vector<std::string>& texts, std::string_view separator) {
    std::string all;
    for (const std::string& text : texts)
        all.append(all.empty() ? "" : separator).append(text);
    return all;
}

bool isBlank(std::string_view utf8) {
    return utf8.find_first_not_of(' ') == std::string_view::npos;
}

} // namespace opd::text
