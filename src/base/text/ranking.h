#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace opd::text {

/// A row of a list as it is searched: its cells, folded (see `folded`). One object reads row after row.
class SearchedRow {
  public:
    /// `code` and `name` say which of the cells are those.
    SearchedRow(std::size_t code, std::size_t name) : m_codeCell(code), m_nameCell(name) {}

    /// Begins the next row.
    void clear();

    /// Adds a cell to it.
    void add(std::string_view cell);

    bool holds(std::string_view wanted) const { return m_everything.find(wanted) != std::string::npos; }

    std::string_view code() const { return m_code; }
    std::string_view name() const { return m_name; }

    /// Every cell, each with a line end behind it, so that no text is found across two of them.
    const std::string& everything() const { return m_everything; }

  private:
    std::size_t m_codeCell;
    std::size_t m_nameCell;
    std::size_t m_cells = 0;
    std::string m_code;
    std::string m_name;
    std::string m_everything;
};

/// How well a row answers what was looked for, the best first.
enum class Rank { ExactCode, ExactName, NameBegins, WordBegins, Other };

/// The rank of a row for a text that is folded and trimmed.
Rank rankOf(std::string_view wanted, const SearchedRow& row);

/// Puts rows, named by their places, in the order of their rank; those of one rank keep theirs. `read` gives the row at
/// a place, good until the next one is asked for. An empty text ranks nothing.
std::vector<std::size_t> ranked(const std::string& wanted, std::vector<std::size_t> places,
                                const std::function<const SearchedRow&(std::size_t place)>& read);

} // namespace opd::text
