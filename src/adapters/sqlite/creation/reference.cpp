#include "adapters/sqlite/creation/reference.h"

#include "adapters/sqlite/embedded_sql.h"

#include <algorithm>
#include <string>

namespace opd::adapters::sqlite {

namespace {

constexpr char columnMark = '|';
constexpr char commentMark = '#';

/// The text up to the mark; `rest` becomes what stands behind it.
std::string_view cut(std::string_view& rest, char mark) {
    const std::string_view text = rest.substr(0, rest.find(mark));
    rest.remove_prefix(std::min(rest.size(), text.size() + 1));
    return text;
}

Query insertInto(const Database& database, const std::string& table, std::string_view firstRow) {
    std::string marks = "?";
    for (auto others = std::count(firstRow.begin(), firstRow.end(), columnMark); others > 0; --others)
        marks += ", ?";
    return {database, ("INSERT INTO Build_File_" + table + " VALUES (" + marks + ")").c_str()};
}

void insertRow(Query& query, std::string_view row) {
    for (int position = 1; position <= sqlite3_bind_parameter_count(query.statement()); ++position)
        query.bind(position, std::string{cut(row, columnMark)});
    query.next();
    query.reset();
}

void insertList(Database& database, const EmbeddedText& list) {
    std::string_view rest = list.text;
    while (rest.starts_with(commentMark))
        cut(rest, '\n');
    Query query = insertInto(database, list.name, rest.substr(0, rest.find('\n')));
    while (!rest.empty())
        insertRow(query, cut(rest, '\n'));
}

} // namespace

void insertReferenceData(Database& database) {
    for (std::size_t i = 0; i < embeddedReferenceCount; ++i)
        insertList(database, embeddedReference[i]);
}

} // namespace opd::adapters::sqlite
