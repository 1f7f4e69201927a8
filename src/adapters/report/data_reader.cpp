#include "adapters/report/data_reader.h"

#include "ado/error.h"
#include "ado/recordset.h"
#include "base/text/text.h"

#include <list>

namespace opd::adapters::reporting {

namespace {

/// The connections of one reading: one for all tables that are logged on alike.
class Connections {
  public:
    explicit Connections(const OnConnect& onConnect) : m_onConnect(onConnect) {}

    ado::Connection& of(const report::LogOn& logOn) {
        const std::string wanted = ado::connectionString({logOn.user, logOn.password, logOn.server, logOn.database});
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

/// The statement with the values of its names. `each` is the value of the name "each".
ado::Statement filledIn(const std::string& statement, const ReportData& data, const std::string& each) {
    return ado::Statement::fromOutside(
        statement, "{", "}", [&](const std::string& name) { return name == "each" ? each : valueOf(data, name); });
}

ado::ResultSet answerTo(const ado::Statement& statement, ado::Connection& connection) {
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
