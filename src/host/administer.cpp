#include "host/commands.h"

#include "adapters/settings/ini_store.h"
#include "ado/provider.h"
#include "base/clock/date_text.h"
#include "base/os/system_clock.h"
#include "host/hospital_connection.h"
#include "host/hospital_row.h"
#include "host/visit_counts.h"

#include <fmt/core.h>

#include <stdexcept>

namespace opd::host {

namespace {

using namespace adapters;

std::filesystem::path folderOf(const AdministerOptions& options) {
    if (!options.database.empty())
        return options.database;
    const std::string server = configuredServer(settings::IniStore{options.settings});
    if (!ado::isFolder(server))
        throw std::runtime_error(
            "The configured database \"" + server +
            "\" is a server's, which its own tools take care of. This command is for a hospital in "
            "a folder: name it with --database FOLDER.");
    return server;
}

DateTime dayOf(const std::string& text, const DateTime& otherwise) {
    if (text.empty())
        return otherwise;
    constexpr int firstYear = 1753, lastYear = 9998; // as far as a server's days go, and one more behind the last
    const std::optional<DateTime> day = parseDate(text);
    if (!day || day->year < firstYear || day->year > lastYear)
        throw std::runtime_error("\"" + text + "\" is no day such as \"03/07/2026\".");
    return *day;
}

const char* onOrOff(bool on) {
    return on ? "on" : "off";
}

void showFlags(ado::Connection& connection, const std::string& wanted) {
    const std::string column = wanted.empty() ? std::string{} : columnOfFlag(wanted);
    for (const auto& [name, on] : flagsOf(connection))
        if (column.empty() || name == column)
            fmt::print("{:<32}{}\n", name, onOrOff(on));
}

void changeNames(HospitalConnection& hospital, const sqlite::HospitalNames& names) {
    if (!hospital.folder().empty()) {
        sqlite::setNames(hospital.folder(), names);
        return;
    }
    for (const auto& [column, text] : {std::pair{"Company", names.name}, std::pair{"Address1", names.address},
                                       std::pair{"ClientName", names.clientCode}})
        if (text)
            setText(hospital.connection(), column, *text);
}

} // namespace

void backUp(const AdministerOptions& options) {
    sqlite::backUp(folderOf(options), options.file);
    fmt::print("The hospital is backed up in {}.\n", options.file);
}

void restore(const AdministerOptions& options) {
    const std::filesystem::path kept = sqlite::restore(folderOf(options), options.file);
    fmt::print("The hospital holds what {} held.\n", options.file);
    if (!kept.empty())
        fmt::print("What it held before is kept in {}.\n", kept.string());
}

void check(const AdministerOptions& options) {
    const std::filesystem::path place = options.file.empty() ? folderOf(options) : std::filesystem::path{options.file};
    const std::vector<std::string> faults = sqlite::faultsOf(place);
    for (const std::string& fault : faults)
        fmt::print("{}\n", fault);
    if (!faults.empty())
        throw std::runtime_error(
            fmt::format("{} has {} fault{}.", place.string(), faults.size(), faults.size() == 1 ? "" : "s"));
    fmt::print("{} is right.\n", place.string());
    if (sqlite::isOlder(place))
        fmt::print(
            "It is of an older version: the next desk that opens it changes it to this one, and keeps a copy.\n");
}

void flag(const AdministerOptions& options) {
    HospitalConnection hospital(options);
    if (!options.onOrOff.empty())
        setFlag(hospital.connection(), options.flag, options.onOrOff == "on");
    showFlags(hospital.connection(), options.flag);
}

void hospital(const AdministerOptions& options) {
    HospitalConnection hospital(options);
    changeNames(hospital, options.names);
    const auto shown = [&](const char* column) { return textIn(hospital.connection(), column); };
    fmt::print("Name     {}\nAddress  {}\nClient   {}\n", shown("Company"), shown("Address1"), shown("ClientName"));
}

void statistics(const AdministerOptions& options) {
    constexpr long week = 7;
    const DateTime last = dayOf(options.until, os::machineClock().now());
    const DateTime first = dayOf(options.from, addDays(last, 1 - week));
    if (last.date() < first.date())
        throw std::runtime_error(fmt::format("The last day, {}, comes before the first, {}: nothing was counted.",
                                             dateText(last), dateText(first)));
    HospitalConnection hospital(options);
    const std::vector<VisitCount> counts = visitCounts(hospital.connection(), first, last);
    fmt::print("{:<12}{:<16}{:<32}{:>7}{:>9}\n", "Day", "User", "Service", "Visits", "Revoked");
    long visits = 0, revoked = 0;
    for (const VisitCount& count : counts) {
        fmt::print("{:<12}{:<16}{:<32}{:>7}{:>9}\n", count.day, count.user, count.service, count.visits, count.revoked);
        visits += count.visits;
        revoked += count.revoked;
    }
    fmt::print("{:<60}{:>7}{:>9}\n", "All", visits, revoked);
}

} // namespace opd::host
