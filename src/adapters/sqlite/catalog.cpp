#include "adapters/sqlite/catalog.h"

#include "adapters/sqlite/engine/errors.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"

#include <algorithm>

namespace opd::adapters::sqlite {

const Column& Table::column(const std::string& wanted) const {
    const auto found = columns.find(text::upper(std::string_view{wanted}));
    if (found == columns.end())
        throw serverError("Invalid column name '" + wanted + "'.", 207, "42S22");
    return found->second;
}

bool Table::liesInOrderOf(const Column& column) const {
    return std::find(orders.begin(), orders.end(), column.name) != orders.end();
}

namespace {

bool isName(const Database& database, const std::string& table, const std::string& column) {
    const char* collation = nullptr;
    return sqlite3_table_column_metadata(database.handle(), "main", table.c_str(), column.c_str(), nullptr, &collation,
                                         nullptr, nullptr, nullptr) == SQLITE_OK &&
           collation != nullptr && sqlite3_stricmp(collation, "OPD") == 0;
}

} // namespace

const Table& Catalog::table(const std::string& databaseName, const std::string& tableName) {
    const std::string key = text::upper(std::string_view{databaseName + "_" + tableName});
    if (const auto known = m_tables.find(key); known != m_tables.end())
        return known->second;
    Query query(m_database, "SELECT t.name, c.name, upper(c.type), c.pk AND l.wr FROM sqlite_schema t "
                            "JOIN pragma_table_list(t.name) l JOIN pragma_table_xinfo(t.name) c "
                            "WHERE l.schema = 'main' AND t.type = 'table' AND upper(t.name) = ?");
    query.bind(1, key);
    Table table;
    while (query.next()) {
        table.name = query.value(0).asText();
        const std::string column = query.value(1).asText();
        const std::string type = query.value(2).asText();
        if (query.value(3).asText() == "1")
            table.key = column;
        table.columns[text::upper(std::string_view{column})] = {column, type == "DATE", type == "DATETIME",
                                                                type == "BIT", isName(m_database, table.name, column)};
    }
    if (table.columns.empty())
        throw serverError("Invalid object name '" + databaseName + ".." + tableName + "'.", 208, "42S02");
    table.orders = ordersOf(table.name);
    return m_tables[key] = std::move(table);
}

std::vector<std::string> Catalog::ordersOf(const std::string& table) const {
    Query query(m_database, "SELECT c.name FROM pragma_index_list(?) i JOIN pragma_index_info(i.name) c "
                            "WHERE i.origin = 'c' AND NOT i.partial AND c.seqno = 0");
    query.bind(1, table);
    std::vector<std::string> columns;
    while (query.next())
        columns.push_back(query.value(0).asText());
    return columns;
}

std::string canonicalDate(std::string_view text, bool dateOnly) {
    const std::optional<DateTime> moment = parseDate(text);
    if (!moment)
        throw serverError("Conversion failed when converting date and/or time from character string.", 241, "22007");
    return isoDateText(dateOnly ? moment->date() : *moment);
}

namespace {

/// A flag as the server reads it: a number, True or False; blank is 0.
std::string flagOf(std::string_view written) {
    const std::string word = text::upper(text::trimmed(written));
    if (word == "TRUE")
        return "1";
    if (word.empty() || word == "FALSE")
        return "0";
    if (word.find_first_not_of("0123456789", word.front() == '-' ? 1 : 0) != std::string::npos || word == "-")
        throw serverError("Conversion failed when converting the varchar value to data type bit.", 245, "22018");
    return word.find_first_not_of("-0") == std::string::npos ? "0" : "1";
}

} // namespace

Argument valueFor(const Column& column, std::string_view text) {
    if (column.isBit)
        return ado::Value{flagOf(text)};
    if (column.isDate || column.isDateTime)
        return ado::Value{canonicalDate(text, column.isDate)};
    return text;
}

} // namespace opd::adapters::sqlite
