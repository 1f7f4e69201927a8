#include "base/text/ranking.h"

#include "base/text/folding.h"
#include "base/text/text.h"

#include <array>

namespace opd::text {

namespace {

bool belongsToWord(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9') || character == '\'' ||
           static_cast<unsigned char>(character) >= 0x80;
}

bool beginsWord(const std::string& text, const std::string& wanted) {
    for (std::size_t at = text.find(wanted); at != std::string::npos; at = text.find(wanted, at + 1))
        if (at == 0 || !belongsToWord(text[at - 1]))
            return true;
    return false;
}

std::string cellOf(const std::vector<std::string>& cells, std::size_t place) {
    return place < cells.size() ? trimmed(folded(cells[place])) : std::string{};
}

} // namespace

SearchedRow::SearchedRow(const std::vector<std::string>& cells, std::size_t codeCell, std::size_t nameCell)
    : code(cellOf(cells, codeCell)), name(cellOf(cells, nameCell)) {
    for (const std::string& cell : cells)
        everything += folded(cell) + '\n';
}

Rank rankOf(const std::string& wanted, const SearchedRow& row) {
    if (row.code == wanted)
        return Rank::ExactCode;
    if (row.name == wanted)
        return Rank::ExactName;
    if (row.name.starts_with(wanted))
        return Rank::NameBegins;
    return beginsWord(row.everything, wanted) ? Rank::WordBegins : Rank::Other;
}

std::vector<std::size_t> ranked(const std::string& wanted, const std::vector<SearchedRow>& rows,
                                const std::vector<std::size_t>& places) {
    if (wanted.empty())
        return places;
    std::array<std::vector<std::size_t>, 5> byRank;
    for (const std::size_t place : places)
        byRank.at(static_cast<std::size_t>(rankOf(wanted, rows[place]))).push_back(place);
    std::vector<std::size_t> order;
    order.reserve(places.size());
    for (const std::vector<std::size_t>& equals : byRank)
        order.insert(order.end(), equals.begin(), equals.end());
    return order;
}

} // namespace opd::text
