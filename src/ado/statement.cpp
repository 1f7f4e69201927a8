#include "ado/statement.h"

#include "ado/error.h"

#include <algorithm>

namespace opd::ado {

namespace {

bool isPlain(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || character == '-';
}

/// Two hyphens would begin a comment.
bool isBareWord(std::string_view word) {
    return !word.empty() && word.find("--") == std::string_view::npos && std::all_of(word.begin(), word.end(), isPlain);
}

bool isOfIdentifier(char character) {
    return (isPlain(character) && character != '-') || character == '_' || character == '.';
}

} // namespace

bool isSendable(std::string_view value) {
    return value.find('\'') == std::string_view::npos;
}

Statement& Statement::value(std::string_view value) {
    if (!isSendable(value))
        throw Error("The entry \"" + std::string{value} +
                        "\" holds an apostrophe ('), which the database does not take. Please write it without.",
                    "OPD Registration", 105, "42000");
    if (value.find('\0') != std::string_view::npos) // a driver would send what stands before it, with the quote open
        throw Error("An entry holds a character that ends texts (NUL), which the database does not take: \"" +
                        std::string{value.substr(0, value.find('\0'))} + "\". Please write it anew.",
                    "OPD Registration", 105, "42000");
    m_text += value;
    return *this;
}

Statement& Statement::number(long number) {
    m_text += std::to_string(number);
    return *this;
}

Statement& Statement::bareWord(std::string_view word) {
    if (!isBareWord(word))
        throw Error("\"" + std::string{word} + "\" is no number that the database takes.", "OPD Registration", 102,
                    "42000");
    m_text += word;
    return *this;
}

Statement& Statement::identifier(std::string_view name) {
    if (name.empty() || !std::all_of(name.begin(), name.end(), isOfIdentifier))
        throw Error("\"" + std::string{name} + "\" is no name of a table or column.", "OPD Registration", 102, "42000");
    m_text += name;
    return *this;
}

Statement Statement::fromOutside(std::string_view text, std::string_view opening, std::string_view closing,
                                 const ValueOf& valueOf) {
    Statement statement("");
    std::size_t done = 0;
    bool isQuoted = false;
    const auto addPiece = [&](std::string_view piece) {
        isQuoted ^= std::count(piece.begin(), piece.end(), '\'') % 2 != 0;
        statement.m_text += piece;
    };
    const auto nextName = [&] { return opening.empty() ? std::string_view::npos : text.find(opening, done); };
    for (std::size_t open = nextName(); open != std::string_view::npos; open = nextName()) {
        const std::size_t name = open + opening.size();
        const std::size_t close = text.find(closing, name);
        if (close == std::string_view::npos)
            throw Error("A \"" + std::string{opening} + "\" of the statement is not closed: " + std::string{text},
                        "OPD Registration", 102, "42000");
        addPiece(text.substr(done, open - done));
        const std::string value = valueOf(std::string{text.substr(name, close - name)});
        isQuoted ? statement.value(value) : statement.bareWord(value);
        done = close + closing.size();
    }
    statement.m_text += text.substr(done);
    return statement;
}

} // namespace opd::ado
