#include "adapters/sqlite/catalog.h"

#include "adapters/sqlite/engine/errors.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"

namespace opd::adapters::sqlite {

const Column& Table::column(const std::string& wanted) const {
    const auto found = columns.find(text::upper(std::string_view{wanted}));
    if (found == columns.end())
        throw serverError("Invalid column name '" + wanted + "'.", 207, "42S22");
    return found->second;
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
    return m_tables[key] = std::move(table);
}

std::string canonicalDate(const std::string& text, bool dateOnly) {
    const std::optional<DateTime> moment = parseDate(text);
    if (!moment)
        throw serverError("Conversion failed when converting date and/or time from character string.", 241, "22007");
    return isoDateText(dateOnly ? moment->date() : *moment);
}

namespace {

/// A flag as the server reads it: a number, True or False; blank is 0.
std::string flagOf(const std::string& written) {
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

std::string literalFor(const Column& column, const std::string& text) {
    if (column.isBit)
        return flagOf(text);
    return column.isDate || column.isDateTime ? canonicalDate(text, column.isDate) : text;
}

} // namespace opd::adapters::sqlite
