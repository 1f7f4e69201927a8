#include "adapters/sqlite/prepared_statements.h"

namespace opd::adapters::sqlite {

namespace {

/// More than a desk and its report send in a day; a host with ever new texts does not fill the memory.
constexpr std::size_t mostTexts = 256;

std::vector<int> placesOf(const Query& query, const Procedure& procedure) {
    std::vector<int> places;
    for (const Procedure::Parameter& parameter : procedure.parameters)
        places.push_back(sqlite3_bind_parameter_index(query.statement(), (":" + parameter.name).c_str()));
    return places;
}

} // namespace

Prepared& PreparedStatements::of(const std::string& text) {
    if (const auto known = m_texts.find(text); known != m_texts.end())
        return known->second;
    Prepared prepared = prepare(text);
    if (m_texts.size() >= mostTexts)
        m_texts.clear();
    return m_texts.emplace(text, std::move(prepared)).first->second;
}

Prepared& PreparedStatements::of(const Procedure& procedure) {
    if (const auto known = m_procedures.find(&procedure); known != m_procedures.end())
        return known->second;
    Prepared prepared = prepare(procedure.body);
    for (const Query& query : prepared.queries)
        prepared.places.push_back(placesOf(query, procedure));
    return m_procedures.emplace(&procedure, std::move(prepared)).first->second;
}

void PreparedStatements::run(const char* statement) {
    auto known = m_words.find(statement);
    if (known == m_words.end())
        known = m_words.emplace(statement, Query(m_database, statement, nullptr, Query::Use::Often)).first;
    Query& query = known->second;
    try {
        query.next();
    } catch (...) {
        query.reset();
        throw;
    }
    query.reset();
}

Prepared PreparedStatements::prepare(const std::string& text) const {
    Prepared prepared;
    for (const char* rest = text.c_str();;) {
        Query query(m_database, rest, &rest, Query::Use::Often);
        if (query.isEmpty())
            return prepared;
        prepared.writing += query.writes() ? 1 : 0;
        prepared.queries.push_back(std::move(query));
    }
}

} // namespace opd::adapters::sqlite
