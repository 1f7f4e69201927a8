#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace opd::text {

/// A row of a list as it is searched: its texts, folded (see `folded`).
struct SearchedRow {
    std::string code;
    std::string name;
    std::string everything; ///< every cell, each with a line end behind it, so that no text is found across two of them

    /// Folds the cells; `code` and `name` say which of them are those.
    SearchedRow(const std::vector<std::string>& cells, std::size_t code, std::size_t name);

    bool holds(const std::string& wanted) const { return everything.find(wanted) != std::string::npos; }
};

/// How well a row answers what was looked for, the best first.
enum class Rank { ExactCode, ExactName, NameBegins, WordBegins, Other };

/// The rank of a row for a text that is folded and trimmed.
Rank rankOf(const std::string& wanted, const SearchedRow& row);

/// Puts rows, named by their places, in the order of their rank; those of one rank keep theirs. An empty text ranks
/// nothing.
std::vector<std::size_t> ranked(const std::string& wanted, const std::vector<SearchedRow>& rows,
                                const std::vector<std::size_t>& places);

} // namespace opd::text
