#include "adapters/report/data_reader.h"

#include "ado/error.h"
#include "ado/recordset.h"
#include "base/text/text.h"

#include <list>

namespace opd::adapters::reporting {

namespace {

std::string connectionString(const report::LogOn& logOn) {
    const std::string user =
        logOn.user.empty() ? "Integrated Security=SSPI" : "User ID=" + logOn.user + ";Password=" + logOn.password;
    return user + ";Initial Catalog=" + logOn.database + ";Data Source=" + logOn.server;
}

/// The connections of one reading: one for all tables that are logged on alike.
class Connections {
  public:
    explicit Connections(const OnConnect& onConnect) : m_onConnect(onConnect) {}

    ado::Connection& of(const report::LogOn& logOn) {
        const std::string wanted = connectionString(logOn);
        for (ado::Connection& open : m_open)
            if (open.ConnectionString == wanted)
                return open;
        ado::Connection& made = m_open.emplace_back();
        made.ConnectionString = wanted;
        if (m_onConnect)
            m_onConnect(made);
        made.Open();
        return made;
    }

  private:
    const OnConnect& m_onConnect;
    std::list<ado::Connection> m_open;
};

ado::Value columnValue(const ReportData& data, const std::string& query, const std::string& column) {
    const auto answer = data.queries.find(query);
    if (answer == data.queries.end())
        throw ado::Error("The report has no query " + query + " before the one that asks for " + column + ".");
    return answer->second.rows.empty() ? ado::Value{} : ado::Recordset{answer->second}.Fields(column);
}

/// The value of a name in a statement: a parameter, or "query.column" of a first row.
std::string valueOf(const ReportData& data, const std::string& name) {
    const std::size_t point = name.find('.');
    if (point != std::string::npos)
        return text::trimmed(columnValue(data, name.substr(0, point), name.substr(point + 1)).asText());
    const auto parameter = data.parameters.find(text::upper(name));
    if (parameter == data.parameters.end())
        throw ado::Error("The report has no parameter " + name + ".");
    return parameter->second;
}

/// The statement with the values of its names. A value never becomes part of the statement's structure.
std::string filledIn(const std::string& statement, const ReportData& data, const std::string& each) {
    std::string filled;
    std::size_t done = 0;
    for (std::size_t open = statement.find('{'); open != std::string::npos; open = statement.find('{', done)) {
        const std::size_t close = statement.find('}', open);
        if (close == std::string::npos)
            throw ado::Error("A \"{\" of the report's statement is not closed: " + statement);
        const std::string name = statement.substr(open + 1, close - open - 1);
        const std::string value = name == "each" ? each : valueOf(data, name);
        if (value.find('\'') != std::string::npos)
            throw ado::Error("The value of " + name + " holds a single quote and cannot be looked up.");
        filled += statement.substr(done, open - done) + value;
        done = close + 1;
    }
    return filled + statement.substr(done);
}

ado::ResultSet answerTo(const std::string& statement, ado::Connection& connection) {
    ado::Recordset rows;
    rows.CursorLocation = ado::CursorLocation::Client;
    rows.Open(statement, connection, ado::CursorType::ForwardOnly, ado::LockType::ReadOnly);
    return rows.State() > 0 ? rows.all() : ado::ResultSet{};
}

void append(ado::ResultSet& all, ado::ResultSet more) {
    if (all.columns.empty())
        all.columns = std::move(more.columns);
    for (std::vector<ado::Value>& row : more.rows)
        all.rows.push_back(std::move(row));
}

ado::ResultSet answers(const Query& query, const ReportData& data, ado::Connection& connection) {
    if (query.forEach.empty())
        return answerTo(filledIn(query.statement, data, {}), connection);
    ado::ResultSet all;
    for (const std::string& name : query.forEach)
        if (const std::string each = valueOf(data, name); !each.empty())
            append(all, answerTo(filledIn(query.statement, data, each), connection));
    return all;
}

} // namespace

ReportData readData(const ReportFile& file, const report::Report& report, const OnConnect& onConnect) {
    ReportData data;
    for (const report::ParameterField& field : report.parameterFields)
        data.parameters[text::upper(field.name)] = field.value;
    Connections connections(onConnect);
    for (std::size_t i = 0; i < file.queries.size(); ++i) {
        const Query& query = file.queries[i];
        data.queries[query.name] = answers(query, data, connections.of(report.tables[i].logOn));
        if (i == 0 && data.queries[query.name].rows.empty())
            throw ado::Error("There is nothing on file for \"" + file.title + "\" of " +
                             (report.parameterFields.empty() ? "today" : report.parameterFields.front().value) + ".");
    }
    return data;
}

} // namespace opd::adapters::reporting
