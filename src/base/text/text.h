#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Work on UTF-8 text that the standard library has no word for.
namespace opd::text {

/// How many characters of one byte a text begins with: all of them in most texts.
std::size_t plainBeginning(std::string_view utf8);

/// The text without blanks (U+0020) at either end.
std::string trimmed(std::string_view utf8);

/// The upper-case form of one character: ASCII, Latin-1 (ñ, é, ü), Latin Extended-A, Greek and Cyrillic letters;
/// every other character is returned as it is.
char32_t upper(char32_t character);

/// The text with every character in its upper-case form.
std::string upper(std::string_view utf8);

/// The characters of a UTF-8 text; a byte that belongs to no character becomes U+FFFD.
std::u32string decode(std::string_view utf8);

/// The UTF-8 text of some characters.
std::string encode(std::u32string_view characters);
std::string encode(char32_t character);

/// The number of characters, not bytes.
std::size_t length(std::string_view utf8);

/// True when both texts are alike but for the letter case.
bool equalsIgnoringCase(std::string_view left, std::string_view right);

/// The text with every `from` replaced by `to`; `from` must not be empty.
std::string replaced(std::string_view utf8, std::string_view from, std::string_view to);

/// The texts with the separator between them; none before the first that is not empty.
std::string joined(const std::vector<std::string>& texts, std::string_view separator);

/// True when the text, trimmed, is empty.
bool isBlank(std::string_view utf8);

} // namespace opd::text
