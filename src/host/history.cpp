#include "adapters/settings/ini_store.h"
#include "adapters/sqlite/provider.h"
#include "ado/error.h"
#include "ado/provider_module.h"
#include "ado/recordset.h"
#include "base/clock/date_text.h"
#include "base/os/library.h"
#include "base/os/system_clock.h"
#include "base/text/text.h"
#include "component/init_dll.h"
#include "host/commands.h"
#include "host/history_words.h"
#include "host/program_folder.h"

#include <fmt/core.h>

#include <stdexcept>

namespace opd::host {

namespace {

// What a server says of a table that is not there, and of one that the login may not read.
constexpr long noSuchTable = 208;
constexpr long mayNotRead = 229;

constexpr std::size_t hospNumLength = 8;
constexpr std::size_t secondsLength = 3; ///< ":09"

settings::IniStore storeOf(const std::string& file) {
    return file.empty() ? settings::IniStore{} : settings::IniStore{file};
}

/// Where the hospital is, and who asks: what is configured, unless the command says otherwise.
ado::LogOn logOnOf(const HistoryOptions& options) {
    const settings::IniStore store = storeOf(options.settings);
    const auto configured = [&](const char* key) {
        return store.get(connectionSettingsApplication, connectionSettingsSection, key);
    };
    if (!options.database.empty())
        return {{}, {}, options.database, "LABORATORY"};
    ado::LogOn logOn{configured("User"), configured("Password"), configured("Server"), "LABORATORY"};
    if (logOn.server.empty())
        throw std::runtime_error("No database is configured. Name a hospital's folder with --database FOLDER.");
    if (!options.user.empty())
        logOn.user = options.user;
    if (options.passwordFromInput)
        logOn.password = passwordFromInput();
    refuseSemicolon("user", logOn.user);
    refuseSemicolon("password", logOn.password);
    return logOn;
}

/// A number that is written without its zeros gets them back.
std::string hospNumOf(const std::string& written) {
    const std::string number = text::trimmed(written);
    const bool isNumber = number.find_first_not_of("0123456789") == std::string::npos;
    const std::size_t zeros = isNumber && number.size() < hospNumLength ? hospNumLength - number.size() : 0;
    return std::string(zeros, '0') + number;
}

ado::Recordset changesOf(ado::Connection& connection, const std::string& hospNum) {
    ado::Recordset changes;
    changes.CursorLocation = ado::CursorLocation::Client;
    try {
        changes.Open(ado::Statement("Select AuditID, IDNum, ChangedAt, UserID, Login, Workstation, What, OldValue, "
                                    "NewValue from Patient_Data..tbMasterAudit where HospNum = '")
                         .value(hospNum)
                         .text("' order by AuditID desc"),
                     connection);
    } catch (const ado::Error& error) {
        if (error.number() == noSuchTable)
            throw std::runtime_error("This server keeps no record of changes: its table tbMasterAudit is missing. The "
                                     "script 16-audit.sql makes it; what was saved before is not in it.");
        if (error.number() == mayNotRead)
            throw std::runtime_error("This login may not read the record of changes. Name one that is a member of the "
                                     "role opd_audit: --user LOGIN --password-stdin.");
        throw;
    }
    return changes;
}

/// Who saved what, when and where; the same for all that one save changed.
std::string headingOf(const ado::Recordset& change) {
    const std::string user = change.Fields("UserID").asText(), login = change.Fields("Login").asText();
    std::string heading = dateTimeText(change.Fields("ChangedAt").asDate());
    heading.resize(heading.size() - secondsLength); // one save may take two of them
    heading += "  " + (text::isBlank(user) ? login : user) + " at " + change.Fields("Workstation").asText();
    if (!text::isBlank(user) && user != login)
        heading += " (login " + login + ")";
    return heading + ", visit " + change.Fields("IDNum").asText();
}

void print(ado::Connection& connection, ado::Recordset changes) {
    std::string heading;
    for (; !changes.EndOfFile(); changes.MoveNext()) {
        if (const std::string its = headingOf(changes); its != heading) {
            fmt::print("{}{}\n", heading.empty() ? "" : "\n", its);
            heading = its;
        }
        const std::string what = changes.Fields("What").asText();
        if (what == "registered") {
            fmt::print("  registered as a new patient\n");
            continue;
        }
        const auto shown = [&](const char* column) {
            return valueInWords(connection, what, changes.Fields(column).asText());
        };
        fmt::print("  {:<28}{} -> {}\n", columnInWords(what), shown("OldValue"), shown("NewValue"));
    }
}

} // namespace

void history(const HistoryOptions& options) {
    static const os::SystemClock clock;
    const std::string hospNum = hospNumOf(options.hospNum);
    ado::Providers providers;
    providers.add("folder", adapters::sqlite::makeSqliteProvider(clock));
    providers.add("server",
                  std::make_shared<ado::ModuleProvider>(programFolder(), [&](const std::string& key) -> std::string {
                      return storeOf(options.settings).get(connectionSettingsApplication, serverSettingsSection, key);
                  }));
    ado::Connection connection(providers);
    connection.Open(ado::connectionString(logOnOf(options)));
    ado::Recordset changes = changesOf(connection, hospNum);
    if (changes.EndOfFile())
        throw std::runtime_error("No change of patient " + hospNum + " is on record.");
    print(connection, std::move(changes));
}

} // namespace opd::host
