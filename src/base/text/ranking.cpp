#include "base/text/ranking.h"

#include "base/text/folding.h"
#include "base/text/plain.h"

#include <array>

namespace opd::text {

namespace {

bool belongsToWord(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= '0' && character <= '9') || character == '\'' ||
           !isPlain(character);
}

bool beginsWord(std::string_view text, std::string_view wanted) {
    for (std::size_t at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1))
        if (at == 0 || !belongsToWord(text[at - 1]))
            return true;
    return false;
}

} // namespace

void SearchedRow::clear() {
    m_cells = 0;
    m_code.clear();
    m_name.clear();
    m_everything.clear();
}

void SearchedRow::add(std::string_view cell) {
    const std::size_t begin = m_everything.size();
    appendFolded(m_everything, cell);
    const std::string_view folded = withoutBlanks(std::string_view{m_everything}.substr(begin));
    if (m_cells == m_codeCell)
        m_code = folded;
    if (m_cells == m_nameCell)
        m_name = folded;
    m_everything += '\n';
    ++m_cells;
}

Rank rankOf(std::string_view wanted, const SearchedRow& row) {
    if (row.code() == wanted)
        return Rank::ExactCode;
    if (row.name() == wanted)
        return Rank::ExactName;
    if (row.name().starts_with(wanted))
        return Rank::NameBegins;
    return beginsWord(row.everything(), wanted) ? Rank::WordBegins : Rank::Other;
}

std::vector<std::size_t> ranked(const std::string& wanted, std::vector<std::size_t> places,
                                const std::function<const SearchedRow&(std::size_t place)>& read) {
    if (wanted.empty())
        return places;
    std::array<std::vector<std::size_t>, 5> byRank;
    for (const std::size_t place : places)
        byRank.at(static_cast<std::size_t>(rankOf(wanted, read(place)))).push_back(place);
    places.clear();
    for (const std::vector<std::size_t>& equals : byRank)
        places.insert(places.end(), equals.begin(), equals.end());
    return places;
}

} // namespace opd::text
