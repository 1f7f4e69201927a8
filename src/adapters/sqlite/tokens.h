#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd::adapters::sqlite {

/// The characters that a statement of the desk is made of outside its quoted texts.
namespace characters {
inline constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_@";
inline constexpr std::string_view digits = "0123456789";
inline constexpr std::string_view blanks = " \t\r\n";
inline constexpr std::string_view symbols = ",=()*.<>";
} // namespace characters

/// A piece of a statement text.
struct Token {
    enum class Kind { Word, Number, Text, Symbol, End };

    Kind kind = Kind::End;
    std::string text; ///< without the quotes of a text; "..", "<>", "<=" and ">=" are one symbol each
};

/// The tokens of a statement, ended by one of kind End. Throws ado::Error for a character that no statement of the desk
/// has, for a quote that is not closed, and for a comment.
std::vector<Token> tokensOf(std::string_view statement);

/// True when the token is this word in any letter case.
bool isWord(const Token& token, std::string_view word);

} // namespace opd::adapters::sqlite
