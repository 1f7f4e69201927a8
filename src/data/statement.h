#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd::data {

/// A statement text put together from literal pieces and values. It knows which is which: a value can never become part
/// of the statement's structure. The quotes around a value belong to the literal pieces.
class Statement {
  public:
    template <std::size_t Length> explicit Statement(const char (&literal)[Length]) : m_text(literal) {}

    /// Adds a piece of the statement itself; only a literal of the program can be one.
    template <std::size_t Length> Statement& text(const char (&literal)[Length]) {
        m_text += literal;
        return *this;
    }

    /// Adds a value that stands between quotes. Throws ado::Error when it holds a single quote: such a statement would
    /// be broken and is never sent.
    Statement& value(std::string_view value);

    /// Adds values, the separator (which closes one quote and opens the next) between them.
    template <std::size_t Length>
    Statement& values(const std::vector<std::string>& list, const char (&separator)[Length]) {
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (i > 0)
                m_text += separator;
            value(list[i]);
        }
        return *this;
    }

    /// Adds a whole number that stands without quotes.
    Statement& number(long number);

    /// Adds a value that stands without quotes, such as a hospital number. Throws ado::Error when it holds anything but
    /// ASCII letters, digits and hyphens, or nothing at all.
    Statement& bareWord(std::string_view word);

    const std::string& str() const { return m_text; }

  private:
    std::string m_text;
};

/// True when the value can stand in a statement: it holds no single quote. No code of a reference file holds one.
bool isSendable(std::string_view value);

} // namespace opd::data
