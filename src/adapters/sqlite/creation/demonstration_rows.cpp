#include "adapters/sqlite/creation/demonstration_rows.h"

namespace opd::adapters::sqlite {

namespace {

std::string insertInto(const demonstration::Table& table) {
    std::string columns, marks;
    for (const std::string_view column : table.columns) {
        columns += (columns.empty() ? "" : ", ") + std::string{column};
        marks += marks.empty() ? "?" : ", ?";
    }
    return "INSERT INTO Patient_Data_" + std::string{table.name} + " (" + columns + ") VALUES (" + marks + ")";
}

} // namespace

void DemonstrationRows::add(const demonstration::Table& table, std::vector<ado::Value> values) {
    auto prepared = m_inserts.find(&table);
    if (prepared == m_inserts.end())
        prepared = m_inserts.emplace(&table, Query(m_database, insertInto(table).c_str())).first;
    Query& insert = prepared->second;
    for (std::size_t i = 0; i < values.size(); ++i)
        insert.bind(static_cast<int>(i) + 1, values[i]);
    insert.next();
    insert.reset();
}

void DemonstrationRows::setCounter(std::string_view name, std::int64_t last) {
    Query insert(m_database, "INSERT INTO Patient_Data_tbCounter VALUES (?, ?)");
    insert.bind(1, std::string{name});
    insert.bind(2, last);
    insert.next();
}

} // namespace opd::adapters::sqlite
