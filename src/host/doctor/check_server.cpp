#include "adapters/sqlite/care/procedure_check.h"
#include "ado/error.h"
#include "ado/recordset.h"
#include "base/os/system_clock.h"
#include "base/text/text.h"
#include "component/init_dll.h"
#include "data/connection_settings.h"
#include "data/statements.h"
#include "host/doctor/checks.h"
#include "host/hospital_connection.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <map>

namespace opd::host {

namespace {

using adapters::sqlite::CalledProcedure;

constexpr long wrongPassword = 18456;
constexpr long tolerance = 60; // seconds that clocks may differ

std::string createCommand(const Desk& desk) {
    return "opd-desk create-server --server " + shellWord(desk.server) + " --user ADMINISTRATOR --password-stdin";
}

Finding refused(const Desk& desk, const ado::Error& error) {
    const std::string& state = error.sqlState();
    const std::string reason = error.what();
    if (state == "IM002" || state == "01000" || reason.find("unixodbc") != std::string::npos)
        return wrong("connection", reason, "sudo apt install unixodbc tdsodbc");
    if (const std::string driver = desk.settings.get(connectionSettingsApplication, serverSettingsSection, "Driver");
        !driver.empty() && reason.find("\"" + driver + "\"") != std::string::npos)
        return wrong("connection", reason, "opd-desk configure --driver \"\"" + desk.option);
    const bool isLogin = error.number() == wrongPassword || state == "28000";
    return wrong("connection", reason, configureCommand(desk, isLogin ? shellWord(desk.server) : "NAME,PORT"));
}

/// What a server has in one database: its procedures by their names in capitals, with their arguments in order.
using ServersProcedures = std::map<std::string, std::vector<std::string>>;

/// Asks the server itself, which names those that this login may run.
ServersProcedures proceduresOf(ado::Connection& connection, const std::string& database) {
    ado::Recordset rows = connection.Execute(
        ado::Statement("").identifier(database).text("..sp_sproc_columns '%', 'dbo'"), ado::Effect::Reads);
    ServersProcedures found;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        const std::string name = rows.Fields("PROCEDURE_NAME").asText();
        const std::string argument = rows.Fields("COLUMN_NAME").asText();
        std::vector<std::string>& arguments = found[text::upper(name.substr(0, name.find(';')))];
        if (!text::equalsIgnoringCase(argument, "@RETURN_VALUE"))
            arguments.push_back(argument.substr(argument.starts_with("@") ? 1 : 0));
    }
    return found;
}

/// Where an argument of the desk stands on the server under its name; nothing where no argument has that name.
std::optional<std::size_t> placeOf(const std::vector<std::string>& arguments, const std::string& name) {
    const auto found = std::find_if(arguments.begin(), arguments.end(),
                                    [&](const std::string& each) { return text::equalsIgnoringCase(each, name); });
    if (found == arguments.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - arguments.begin());
}

/// The desk sends values by their place: too few or too many are refused, and those that have changed places are stored
/// in each other's columns. What a hospital calls them is its own affair. Empty when they match.
std::string differenceOf(const CalledProcedure& called, const std::vector<std::string>& servers) {
    for (std::size_t place = 0; place < called.arguments.size(); ++place)
        if (const auto there = placeOf(servers, called.arguments[place]); there && *there != place)
            return fmt::format("has @{} as argument {}, and the desk sends it as argument {}", called.arguments[place],
                               *there + 1, place + 1);
    return servers.size() == called.arguments.size()
               ? std::string{}
               : fmt::format("takes {} arguments, and the desk sends {}", servers.size(), called.arguments.size());
}

/// One that is called in several ways is right when the server has it for the longest: it fills the rest by itself.
bool isLongest(const CalledProcedure& called, const std::vector<CalledProcedure>& all) {
    return std::none_of(all.begin(), all.end(), [&](const CalledProcedure& other) {
        return other.database == called.database && other.name == called.name &&
               other.arguments.size() > called.arguments.size();
    });
}

Findings compared(const Desk& desk, ado::Connection& connection) {
    const std::vector<CalledProcedure> all = adapters::sqlite::calledProcedures();
    std::map<std::string, ServersProcedures> servers;
    Findings found;
    std::size_t checked = 0;
    for (const CalledProcedure& called : all) {
        if (!isLongest(called, all))
            continue;
        ++checked;
        if (!servers.contains(called.database))
            servers[called.database] = proceduresOf(connection, called.database);
        const ServersProcedures& there = servers[called.database];
        const std::string name = called.database + ".." + called.name;
        const auto entry = there.find(text::upper(called.name));
        if (entry == there.end())
            found.push_back(
                wrong("procedures", name + " is not there, or this login may not run it.", createCommand(desk)));
        else if (const std::string difference = differenceOf(called, entry->second); !difference.empty())
            found.push_back(wrong("procedures", name + " " + difference + ".", createCommand(desk)));
    }
    if (found.empty())
        found.push_back(
            right("procedures", fmt::format("All {} are there, with the arguments that the desk sends.", checked)));
    return found;
}

/// A hospital that was not made by this program's scripts has none, and one whose administrator has not let the desks
/// read it shows none.
Finding versionFinding(ado::Connection& connection) {
    try {
        const ado::Recordset row =
            connection.Execute("select Version from Patient_Data..tbDeskVersion", ado::Effect::Reads);
        return right("version", "The server's databases are of version " + row.Fields("Version").asText() + ".");
    } catch (const ado::Error& error) {
        return missing("version", std::string{"The server tells no version. ("} + error.what() + ")");
    }
}

long secondsBetween(const DateTime& from, const DateTime& to) {
    constexpr long day = 24L * 60 * 60;
    const auto ofDay = [](const DateTime& at) { return 3600L * at.hour + 60L * at.minute + at.second; };
    return daysBetween(from, to) * day + ofDay(to) - ofDay(from);
}

Finding clockFinding(ado::Connection& connection) {
    const DateTime servers =
        connection.Execute(data::statements::serverDate(), ado::Effect::Reads).Fields("Tdate").asDate();
    const long difference = secondsBetween(servers, os::machineClock().now());
    if (std::labs(difference) > tolerance)
        return wrong("clock",
                     fmt::format("This machine is {} seconds {} the server.", std::labs(difference),
                                 difference > 0 ? "ahead of" : "behind"),
                     "sudo timedatectl set-ntp true");
    return right("clock", fmt::format("This machine and the server differ by {} seconds.", std::labs(difference)));
}

} // namespace

Findings checkServer(const Desk& desk) {
    ado::Providers providers;
    providers.add("server", serverProvider(desk.settings));
    ado::Connection connection(providers);
    try {
        connection.Open(data::connStr(desk.settings, 4, "LABORATORY"));
    } catch (const ado::Error& error) {
        return {refused(desk, error)};
    }
    Findings found{right("connection", "The server \"" + desk.server + "\" takes the login."),
                   versionFinding(connection)};
    try {
        const Findings procedures = compared(desk, connection);
        found.insert(found.end(), procedures.begin(), procedures.end());
        found.push_back(clockFinding(connection));
    } catch (const ado::Error& error) {
        found.push_back(
            wrong("procedures", error.what(), {})); // what is there is not known: nothing is to be made anew
    }
    return found;
}

} // namespace opd::host
