#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace opd::ado {

/// A statement text put together from literal pieces and values, and all that a connection takes. It knows which is
/// which: a value can never become part of the statement's structure. The quotes around a value belong to the literal
/// pieces.
class Statement {
  public:
    /// A literal of the program is a statement wherever one is wanted.
    template <std::size_t Length> Statement(const char (&literal)[Length]) : m_text(literal) {}

    /// Answers the value of a name in a statement that comes from outside.
    using ValueOf = std::function<std::string(const std::string& name)>;

    /// The one place where a text that is no literal of the program becomes a statement: the query that a host hands to
    /// a window, and those of a report file. Who may write them may ask the database anything, so they come from
    /// nobody else: the host is the program's own caller, and a report file lies beside the component. The values in
    /// the place of the names (between `opening` and `closing`, which may be empty; without an `opening` there are
    /// none) are held to the rule of `value` between quotes and to that of `bareWord` elsewhere. Throws Error, also for
    /// a name that is not closed.
    static Statement fromOutside(std::string_view text, std::string_view opening = {}, std::string_view closing = {},
                                 const ValueOf& valueOf = {});

    /// Adds a piece of the statement itself; only a literal of the program can be one.
    template <std::size_t Length> Statement& text(const char (&literal)[Length]) {
        m_text += literal;
        return *this;
    }

    /// Adds a value that stands between quotes. Throws Error when it holds a single quote: such a statement would
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

    /// Adds a value that stands without quotes, such as a hospital number. Throws Error when it holds anything but
    /// ASCII letters, digits and single hyphens, or nothing at all.
    Statement& bareWord(std::string_view word);

    /// Adds the name of a table or column. Throws Error when it holds anything but ASCII letters, digits, "_" and ".".
    Statement& identifier(std::string_view name);

    const std::string& str() const { return m_text; }

  private:
    std::string m_text;
};

/// True when the value can stand in a statement: it holds no single quote. No code of a reference file holds one.
bool isSendable(std::string_view value);

} // namespace opd::ado
