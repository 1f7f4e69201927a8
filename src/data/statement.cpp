#include "data/statement.h"

#include "ado/error.h"

#include <algorithm>

namespace opd::data {

namespace {

bool isPlain(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || character == '-';
}

} // namespace

bool isSendable(std::string_view value) {
    return value.find('\'') == std::string_view::npos;
}

Statement& Statement::value(std::string_view value) {
    if (!isSendable(value))
        throw ado::Error("The entry \"" + std::string{value} +
                             "\" holds an apostrophe ('), which the database does not take. Please write it without.",
                         "OPD Registration", 105, "42000");
    m_text += value;
    return *this;
}

Statement& Statement::number(long number) {
    m_text += std::to_string(number);
    return *this;
}

Statement& Statement::bareWord(std::string_view word) {
    if (word.empty() || !std::all_of(word.begin(), word.end(), isPlain))
        throw ado::Error("\"" + std::string{word} + "\" is no number that the database takes.", "OPD Registration", 102,
                         "42000");
    m_text += word;
    return *this;
}

} // namespace opd::data
