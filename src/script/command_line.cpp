#include "script/command_line.h"

#include <optional>
#include <stdexcept>

namespace opd::script {

namespace {

bool isBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r';
}

/// The character that a backslash before this one makes of it; nothing where the backslash stands for itself, as in a
/// regular expression's "\d".
std::optional<char> escaped(char character) {
    switch (character) {
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    case '"':
    case '\\':
        return character;
    default:
        return std::nullopt;
    }
}

/// The text between the quote at `at` and the one that closes it; `at` moves behind that.
std::string quotedText(std::string_view line, std::size_t& at) {
    const char quote = line[at++];
    std::string text;
    for (; at < line.size(); ++at) {
        if (line[at] == quote) {
            ++at;
            return text;
        }
        const bool escapes = quote == '"' && line[at] == '\\' && at + 1 < line.size();
        const std::optional<char> meant = escapes ? escaped(line[at + 1]) : std::nullopt;
        text += meant.value_or(line[at]);
        at += meant ? 1 : 0;
    }
    throw std::runtime_error(std::string{"a quote ("} + quote + ") is not closed");
}

} // namespace

std::vector<std::string> wordsOf(std::string_view line) {
    std::vector<std::string> words;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        if (at == line.size() || line[at] == '#')
            return words;
        std::string word;
        while (at < line.size() && !isBlank(line[at])) {
            if (line[at] == '"' || line[at] == '\'')
                word += quotedText(line, at);
            else
                word += line[at++];
        }
        words.push_back(std::move(word));
    }
}

} // namespace opd::script
