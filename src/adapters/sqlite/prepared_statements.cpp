#include "adapters/sqlite/prepared_statements.h"

namespace opd::adapters::sqlite {

namespace {

/// More than a desk and its report send in a day; a host with ever new texts does not fill the memory.
constexpr std::size_t mostTexts = 256;

} // namespace

std::vector<Query>& PreparedStatements::of(const std::string& text) {
    if (const auto known = m_statements.find(text); known != m_statements.end())
        return known->second;
    std::vector<Query> queries;
    for (const char* rest = text.c_str();;) {
        Query query(m_database, rest, &rest, Query::Use::Often);
        if (query.isEmpty())
            break;
        queries.push_back(std::move(query));
    }
    if (m_statements.size() >= mostTexts)
        m_statements.clear();
    return m_statements.emplace(text, std::move(queries)).first->second;
}

} // namespace opd::adapters::sqlite
