#include "setup/insert_statements.h"

#include "base/text/text.h"

#include <algorithm>
#include <cstdio>

namespace opd::setup {

namespace {

// A server takes 1,000 rows; it plans fewer sooner.
constexpr std::size_t rowsOfAStatement = 200;

/// A moment that no language of a session reads otherwise.
std::string momentText(const DateTime& moment) {
    char text[32];
    std::snprintf(text, sizeof text, "'%04d%02d%02d %02d:%02d:%02d'", moment.year, moment.month, moment.day,
                  moment.hour, moment.minute, moment.second);
    return text;
}

std::string literal(const ado::Value& value) {
    if (value.isNull())
        return "NULL";
    if (const auto* moment = value.get<DateTime>())
        return momentText(*moment);
    if (const auto* number = value.get<std::int64_t>())
        return std::to_string(*number);
    return quoted(value.asText());
}

template <class List, class Text> std::string listOf(const List& list, const Text& textOf) {
    std::string text;
    for (const auto& each : list)
        text.append(text.empty() ? "" : ", ").append(textOf(each));
    return "(" + text + ")";
}

} // namespace

std::string quoted(const std::string& text) {
    return "N'" + text::replaced(text, "'", "''") + "'";
}

void InsertStatements::add(const demonstration::Table& table, std::vector<ado::Value> values) {
    Pending& pending = pendingOf(table);
    pending.rows.push_back(listOf(values, literal));
    if (pending.rows.size() == rowsOfAStatement)
        sendPending();
}

void InsertStatements::setCounter(std::string_view name, std::int64_t last) {
    sendPending();
    m_send(ado::Statement::fromOutside("UPDATE Patient_Data.dbo.tbCounter SET Last = " + std::to_string(last) +
                                       " WHERE Name = " + quoted(std::string{name})));
}

InsertStatements::Pending& InsertStatements::pendingOf(const demonstration::Table& table) {
    const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                    [&](const Pending& pending) { return pending.table == &table; });
    return found != m_pending.end() ? *found : m_pending.emplace_back(Pending{&table, {}});
}

// All tables at once: a row refers to rows of tables that came up before its own.
void InsertStatements::sendPending() {
    for (Pending& pending : m_pending) {
        if (pending.rows.empty())
            continue;
        const std::string columns =
            listOf(pending.table->columns, [](std::string_view column) { return std::string{column}; });
        std::string statement = "INSERT INTO Patient_Data.dbo.";
        statement.append(pending.table->name)
            .append(" ")
            .append(columns)
            .append(" VALUES\n")
            .append(text::joined(pending.rows, ",\n"));
        m_send(ado::Statement::fromOutside(statement));
        pending.rows.clear();
    }
}

} // namespace opd::setup
