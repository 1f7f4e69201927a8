#include "setup/script_batches.h"

#include "ado/error.h"
#include "base/text/text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace opd::setup {

namespace {

/// What of a text belongs to quotations and comments, character by character.
class Reader {
  public:
    /// True where the next character begins something of its own, and is no part of a quotation or comment.
    bool isOutside() const { return m_closing == '\0' && m_comments == 0 && !m_lineComment; }

    /// Takes the next character; `after` is the one behind it.
    void take(char character, char after) {
        if (std::exchange(m_skipped, false))
            return;
        if (m_lineComment)
            m_lineComment = character != '\n';
        else if (m_comments > 0)
            takeInComment(character, after);
        else if (m_closing != '\0')
            m_closing = character == m_closing ? '\0' : m_closing; // a doubled one closes and opens again
        else
            takeOutside(character, after);
    }

    /// True when a statement or a part of one has been taken since the last call.
    bool hadCode() { return std::exchange(m_hadCode, false); }

    bool isUnfinished() const { return m_closing != '\0' || m_comments > 0; }

  private:
    void takeInComment(char character, char after) {
        m_skipped = (character == '/' && after == '*') || (character == '*' && after == '/');
        if (m_skipped)
            m_comments += character == '/' ? 1 : -1; // comments of this language hold others
    }

    void takeOutside(char character, char after) {
        m_lineComment = character == '-' && after == '-';
        if (character == '/' && after == '*') {
            m_comments = 1;
            m_skipped = true;
        }
        if (m_lineComment || m_comments > 0)
            return;
        m_hadCode = m_hadCode || std::string_view{" \t\r\n"}.find(character) == std::string_view::npos;
        if (character == '\'' || character == '"')
            m_closing = character;
        else if (character == '[')
            m_closing = ']';
    }

    char m_closing = '\0'; ///< what ends the quotation
    int m_comments = 0;    ///< how many comments are open, one within the other
    bool m_lineComment = false;
    bool m_skipped = false; ///< the second character of a sign has been taken with the first
    bool m_hadCode = false;
};

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

/// What stands behind GO on a line that begins with it; nothing for any other line.
std::optional<std::string> behindGo(std::string_view line) {
    const std::string_view words = withoutBlanks(line.substr(0, line.find("--")));
    const std::string_view first = words.substr(0, words.find_first_of(" \t"));
    if (!text::equalsIgnoringCase(first, "GO"))
        return std::nullopt;
    return std::string{withoutBlanks(words.substr(first.size()))};
}

bool isNumber(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

ado::Error scriptError(int line, const std::string& what) {
    return ado::Error("Line " + std::to_string(line) + ": " + what, "Script");
}

} // namespace

std::vector<Batch> batchesOf(std::string_view script) {
    std::vector<Batch> batches;
    Batch batch;
    Reader reader;
    const auto finish = [&](int nextLine) {
        if (reader.hadCode())
            batches.push_back(std::move(batch));
        batch = {nextLine, {}};
    };
    int number = 1;
    for (std::size_t at = 0; at < script.size(); ++number) {
        const std::string_view line = script.substr(at, script.find('\n', at) - at);
        const std::optional<std::string> behind = reader.isOutside() ? behindGo(line) : std::nullopt;
        if (behind && isNumber(*behind))
            throw scriptError(number, "GO with a number is not understood.");
        at = std::min(at + line.size() + 1, script.size());
        if (behind && behind->empty()) {
            finish(number + 1);
            continue;
        }
        for (std::size_t i = at - std::min(at, line.size() + 1); i < at; ++i)
            reader.take(script[i], i + 1 < script.size() ? script[i + 1] : '\0');
        batch.text += std::string{line} + "\n";
    }
    if (reader.isUnfinished())
        throw scriptError(batch.line, "a quotation or comment of this batch does not end.");
    finish(number);
    return batches;
}

} // namespace opd::setup
