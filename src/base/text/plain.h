#pragma once

#include <string_view>

/// Work on characters of one byte, for what is done to thousands of texts at a time.
namespace opd::text {

/// True for a character of one byte.
inline bool isPlain(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// The capital of a plain character; every other byte stays as it is.
inline char plainUpper(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
}

/// The part of the text before the blanks (U+0020) at its end.
inline std::string_view withoutEndBlanks(std::string_view utf8) {
    return utf8.substr(0, utf8.find_last_not_of(' ') + 1);
}

/// The part of the text between the blanks at its ends.
inline std::string_view withoutBlanks(std::string_view utf8) {
    const std::size_t first = utf8.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : withoutEndBlanks(utf8.substr(first));
}

} // namespace opd::text
