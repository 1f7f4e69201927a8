#include "ado/columns.h"

#include "base/text/text.h"

#include <algorithm>
#include <utility>

namespace opd::ado {

/// The places of the names, those of one length together: a form asks for every column of rows with many, and most
/// names are told apart by their length.
struct Columns::Index {
    explicit Index(std::vector<std::string> all);

    std::vector<std::string> names;
    std::vector<std::size_t> places;  ///< by the length of their names
    std::vector<std::size_t> beginOf; ///< where the places of a length begin, and behind the longest where all end
};

Columns::Index::Index(std::vector<std::string> all) : names(std::move(all)) {
    std::size_t longest = 0;
    for (const std::string& name : names)
        longest = std::max(longest, name.size());
    for (std::size_t length = 0; length <= longest; ++length) {
        beginOf.push_back(places.size());
        for (std::size_t place = 0; place < names.size(); ++place)
            if (names[place].size() == length)
                places.push_back(place);
    }
    beginOf.push_back(places.size());
}

Columns::Columns(std::vector<std::string> names)
    : m_index(names.empty() ? nullptr : std::make_shared<const Index>(std::move(names))) {}

const std::vector<std::string>& Columns::names() const {
    static const std::vector<std::string> none;
    return m_index ? m_index->names : none;
}

std::optional<std::size_t> Columns::find(std::string_view name) const {
    if (!m_index || name.size() + 1 >= m_index->beginOf.size())
        return std::nullopt;
    for (std::size_t at = m_index->beginOf[name.size()]; at < m_index->beginOf[name.size() + 1]; ++at)
        if (const std::size_t place = m_index->places[at]; text::equalsIgnoringCase(m_index->names[place], name))
            return place;
    return std::nullopt;
}

} // namespace opd::ado
