#include "adapters/sqlite/care/maintenance.h"
#include "adapters/sqlite/care/procedure_check.h"
#include "adapters/sqlite/provider.h"
#include "ado/connection.h"
#include "ado/error.h"
#include "base/os/system_clock.h"
#include "host/doctor/checks.h"

#include <fmt/core.h>

namespace opd::host {

namespace {

using namespace adapters;

// The numbers of errors.
constexpr long noRight = 229;
constexpr long onlyReads = 3906;
constexpr long damaged = 824;

constexpr const char* install = "sudo apt install ./opd-registration_*.deb"; // the newer one

/// The option that names the hospital to a command.
std::string namedBy(const Desk& desk) {
    return "--database " + shellWord(desk.server);
}

/// True when users who are neither the owner nor in its group get into the folder.
bool isOpen(const std::filesystem::path& folder) {
    using std::filesystem::perms;
    std::error_code unreadable;
    const auto status = std::filesystem::status(folder, unreadable);
    return !unreadable && (status.permissions() & perms::others_all) != perms::none;
}

Finding rightsOf(const std::filesystem::path& folder) {
    if (isOpen(folder))
        return wrong("rights", "Every user of this machine gets at the hospital in \"" + folder.string() + "\".",
                     "chmod o-rwx " + shellWord(folder.string()));
    return right("rights", "Only the owner and the group of \"" + folder.string() + "\" get at the hospital.");
}

Finding connected(const Desk& desk) {
    ado::Providers providers;
    providers.add("sqlite", sqlite::makeSqliteProvider(os::machineClock()));
    ado::Connection connection(providers);
    connection.Open(ado::connectionString({{}, {}, desk.server, "LABORATORY"}));
    connection.BeginTrans();
    connection.RollbackTrans();
    return right("connection", "The hospital in \"" + desk.server + "\" can be read and written.");
}

/// Why a desk would get no connection, with the command for that.
Finding refused(const Desk& desk, const ado::Error& error) {
    if (const std::optional<Finding> fault = diskFault("connection", desk.server))
        return *fault;
    std::error_code unreadable;
    const bool there = std::filesystem::exists(std::filesystem::path(desk.server) / "hospital.db", unreadable);
    if (unreadable || error.number() == noRight || error.number() == onlyReads)
        return wrong("connection", error.what() + std::string{fromNextLogin}, shareCommand(desk.server));
    const std::string restore = "opd-desk restore " + namedBy(desk) + " BACKUP";
    if (!there)
        return wrong(
            "connection", "There is no hospital.db in \"" + desk.server + "\".",
            (std::filesystem::is_directory(desk.server) ? "" : "mkdir -p -m 770 " + shellWord(desk.server) + " && ") +
                restore);
    return wrong("connection", error.what(), error.number() == damaged ? restore : "opd-desk check " + namedBy(desk));
}

Finding versionFinding(const sqlite::SchemaVersions& versions) {
    if (versions.hospital > versions.program)
        return wrong("version",
                     fmt::format("The hospital is of version {}, which is newer than this program's {}.",
                                 versions.hospital, versions.program),
                     install);
    if (versions.hospital < versions.program)
        return right("version", fmt::format("The hospital is of version {}; the next desk that opens it takes it to {} "
                                            "and keeps a copy.",
                                            versions.hospital, versions.program));
    return right("version", fmt::format("The hospital is of version {}, as is this program.", versions.hospital));
}

/// In a hospital of an older version they are not asked: they come with the next desk.
Findings proceduresOf(const Desk& desk) {
    Findings found;
    for (const std::string& fault : sqlite::faultsOfProcedures(desk.server))
        found.push_back(wrong("procedures", fault, "opd-desk restore " + namedBy(desk) + " BACKUP"));
    if (found.empty())
        found.push_back(right("procedures", fmt::format("All {} can run, with the arguments that the desk sends.",
                                                        sqlite::calledProcedures().size())));
    return found;
}

} // namespace

Findings checkHospital(const Desk& desk) {
    Findings found;
    try {
        const sqlite::SchemaVersions versions = sqlite::versionsOf(desk.server);
        found = {rightsOf(desk.server), versionFinding(versions)};
        if (versions.hospital > versions.program)
            return found;
        if (versions.hospital == versions.program) { // opening an older one would change it
            found.push_back(connected(desk));
            const Findings procedures = proceduresOf(desk);
            found.insert(found.end(), procedures.begin(), procedures.end());
        }
        found.push_back(right("clock", "The hospital goes by the clock of this machine."));
    } catch (const ado::Error& error) {
        found.push_back(refused(desk, error));
    }
    return found;
}

} // namespace opd::host
