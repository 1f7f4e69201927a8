#include "adapters/sqlite/prepared_statements.h"

namespace opd::adapters::sqlite {

namespace {

std::vector<int> placesOf(const Query& query, const Procedure& procedure) {
    std::vector<int> places;
    for (const Procedure::Parameter& parameter : procedure.parameters)
        places.push_back(sqlite3_bind_parameter_index(query.statement(), (":" + parameter.name).c_str()));
    return places;
}

} // namespace

Prepared& PreparedStatements::of(const Procedure& procedure) {
    if (const auto known = m_procedures.find(&procedure); known != m_procedures.end())
        return known->second;
    Prepared prepared = of(procedure.body);
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

Prepared PreparedStatements::of(const std::string& text) const {
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
