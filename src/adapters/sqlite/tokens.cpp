#include "adapters/sqlite/tokens.h"

#include "adapters/sqlite/engine/errors.h"
#include "base/text/text.h"

namespace opd::adapters::sqlite {

namespace {

bool isOneOf(std::string_view all, char character) {
    return all.find(character) != std::string_view::npos;
}

bool isDigit(char character) {
    return isOneOf(characters::digits, character);
}

bool isOfWord(char character) {
    return isOneOf(characters::letters, character) || isDigit(character);
}

bool isPair(std::string_view symbol) {
    return symbol == ".." || symbol == "<>" || symbol == ">=" || symbol == "<=";
}

ado::Error syntaxError(std::string_view near) {
    return serverError("Incorrect syntax near '" + std::string{near.substr(0, 40)} + "'.", 102, "42000");
}

} // namespace

std::vector<Token> tokensOf(std::string_view statement) {
    std::vector<Token> tokens;
    std::size_t at = 0;
    const auto take = [&](Token::Kind kind, std::size_t length) {
        tokens.push_back({kind, std::string{statement.substr(at, length)}});
        at += length;
    };
    while (at < statement.size()) {
        const char character = statement[at];
        std::size_t end = at;
        if (isOneOf(characters::blanks, character)) {
            ++at;
        } else if (isOfWord(character)) {
            while (end < statement.size() && isOfWord(statement[end]))
                ++end;
            take(isDigit(character) ? Token::Kind::Number : Token::Kind::Word, end - at);
        } else if (character == '\'') {
            const std::size_t close = statement.find('\'', at + 1);
            if (close == std::string_view::npos)
                throw serverError("Unclosed quotation mark after the character string '" +
                                      std::string{statement.substr(at + 1, 40)} + "'.",
                                  105, "42000");
            // Two quotes in a row would be one inside the text; no statement of the desk doubles quotes.
            if (close + 1 < statement.size() && statement[close + 1] == '\'')
                throw syntaxError(statement.substr(close));
            tokens.push_back({Token::Kind::Text, std::string{statement.substr(at + 1, close - at - 1)}});
            at = close + 1;
        } else if (isPair(statement.substr(at, 2))) {
            take(Token::Kind::Symbol, 2);
        } else if (isOneOf(characters::symbols, character)) {
            take(Token::Kind::Symbol, 1);
        } else {
            throw syntaxError(statement.substr(at));
        }
    }
    tokens.push_back({});
    return tokens;
}

bool isWord(const Token& token, std::string_view word) {
    return token.kind == Token::Kind::Word && text::equalsIgnoringCase(token.text, word);
}

} // namespace opd::adapters::sqlite
