#include "adapters/report/engine_module.h"
#include "ado/provider.h"
#include "base/os/system_clock.h"
#include "base/os/trust.h"
#include "component/init_dll.h"
#include "data/connection_settings.h"
#include "host/doctor/checks.h"
#include "host/program_folder.h"
#include "reports/papers.h"
#include "reports/photograph.h"

#include <fmt/core.h>

#include <cstdint>
#include <set>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace opd::host {

namespace {

namespace fs = std::filesystem;

// The package comes from a file: no repository has it.
constexpr const char* reinstall = "sudo apt install --reinstall ./opd-registration_*.deb";

bool isPrivate(const fs::path& file) {
    std::error_code unreadable;
    const auto rights = fs::status(file, unreadable).permissions();
    return !unreadable && (rights & (fs::perms::group_all | fs::perms::others_all)) == fs::perms::none;
}

Finding configured(const Desk& desk) {
    if (desk.server.empty())
        return wrong("settings", "No database is configured in \"" + desk.settingsFile.string() + "\".",
                     "opd-desk configure --server NAME|FOLDER" + desk.option);
    const std::string user = data::connStr(desk.settings, 1, {});
    const bool isHospital = ado::isFolder(desk.server);
    return right("settings", fmt::format("{} \"{}\"{}.", isHospital ? "The hospital in" : "The server", desk.server,
                                         isHospital     ? std::string{}
                                         : user.empty() ? " with the login of this user"
                                                        : " with the login \"" + user + "\""));
}

Finding libraryFinding(const fs::path& file) {
    try {
        os::trustedLibrary(file);
        return right("program", file.string());
    } catch (const os::LibraryError& error) {
        return wrong("program", error.what(), libraryMend(file, error));
    }
}

Findings reportFindings() {
    const auto engine = adapters::openReportEngine(programFolder(), {.clock = os::machineClock()});
    const fs::path folder = programFolder() / "Reports";
    std::set<fs::path> files; // those of the desk, whether they are there or not, and what a hospital has added
    for (const char* own : {"DataSheet.rpt", reports::patientLabel.file, reports::patientCard.file})
        files.insert(folder / own);
    std::error_code missingFolder;
    for (const auto& entry : fs::directory_iterator(folder, missingFolder))
        if (entry.path().extension() == ".rpt")
            files.insert(entry.path());
    Findings found;
    for (const fs::path& file : files) {
        try {
            engine->open(file);
            found.push_back(right("report file", file.string()));
        } catch (const std::exception& failure) {
            found.push_back(wrong("report file", file.string() + ": " + failure.what(), reinstall));
        }
    }
    return found;
}

Finding pictureFinding(const Desk& desk) {
    constexpr const char* what = "picture folder";
    const std::string folder = reports::pictureFolder(desk.settings);
    if (folder.empty())
        return missing(what, "None is set: photographs cannot be kept.",
                       "opd-desk configure --pictures FOLDER" + desk.option);
    fs::path existing = folder;
    std::error_code unreadable;
    while (!fs::exists(existing, unreadable) && existing.has_relative_path())
        existing = existing.parent_path();
    const std::string at = shellWord(existing.string());
    if (!fs::is_directory(existing, unreadable))
        return wrong(what, "\"" + existing.string() + "\" is no folder.", "mv " + at + " " + at + ".old");
    if (const std::optional<Finding> fault = diskFault(what, existing))
        return *fault;
    if (::access(existing.c_str(), R_OK | W_OK | X_OK) != 0)
        return wrong(what, "This user cannot keep photographs in \"" + existing.string() + "\"." + fromNextLogin,
                     shareCommand(existing));
    return right(what, folder + (existing == folder ? "" : ", which is made with the first photograph"));
}

} // namespace

std::string shareCommand(const fs::path& folder) {
    struct stat found {};
    const bool isAdministrators = ::stat(folder.c_str(), &found) == 0 && found.st_gid == 0;
    const std::string at = shellWord(folder.string());
    const std::string group = isAdministrators ? "opd-desk" : "\"$(stat -c %G " + at + ")\"";
    return (isAdministrators ? "sudo groupadd -f opd-desk && " : "") + ("sudo chgrp -R " + group + " " + at) +
           " && sudo chmod -R g+rwX " + at + " && sudo chmod g+s " + at + " && sudo usermod -a -G " + group +
           " \"$USER\"";
}

std::optional<Finding> diskFault(const char* what, const fs::path& folder) {
    constexpr std::uint64_t leastRoom = 1U << 20U; // less is gone with the next registrations
    const std::string at = shellWord(folder.string());
    struct statvfs disk {};
    if (::statvfs(folder.c_str(), &disk) != 0)
        return std::nullopt;
    if ((disk.f_flag & ST_RDONLY) != 0)
        return wrong(what, "The disk of \"" + folder.string() + "\" can only be read.",
                     "sudo mount -o remount,rw \"$(stat -c %m " + at + ")\"");
    if (std::uint64_t{disk.f_bavail} * disk.f_frsize < leastRoom)
        return wrong(what, "The disk of \"" + folder.string() + "\" is full.", "df -h " + at);
    return std::nullopt;
}

std::string libraryMend(const fs::path& file, const os::LibraryError& error) {
    std::error_code gone;
    const std::string reason = error.what(); // names last, in quotes, what others can change
    const std::size_t end = reason.rfind('"');
    if (!fs::exists(file, gone) || reason.find("is not used, because") == std::string::npos)
        return reinstall;
    const std::size_t begin = reason.rfind('"', end - 1) + 1;
    return "sudo chmod go-w " + shellWord(reason.substr(begin, end - begin));
}

std::string configureCommand(const Desk& desk, const std::string& server) {
    const std::string user = data::connStr(desk.settings, 1, {});
    return "opd-desk configure --server " + server +
           (user.empty() ? std::string{} : " --user " + shellWord(user) + " --password-stdin") + desk.option;
}

Findings checkSettings(const Desk& desk) {
    if (desk.settingsFile.empty())
        return {right("settings", "The folder \"" + desk.server + "\" that was named.")};
    std::error_code none;
    if (fs::exists(desk.settingsFile, none) && !isPrivate(desk.settingsFile))
        return {wrong("settings",
                      "Others than its owner can read or change \"" + desk.settingsFile.string() +
                          "\", which may hold a password: no desk uses it.",
                      "chmod 600 " + shellWord(desk.settingsFile.string()))};
    return {configured(desk)};
}

Findings checkProgram() {
    Findings found;
    for (const char* name :
         {"opd-registration", "opd-codesearch", "opd-report-engine", "opd-desktop-qt", "opd-print-qt"})
        found.push_back(libraryFinding(programFolder() / os::libraryFileName(name)));
    return found;
}

Findings checkReports() {
    try {
        return reportFindings();
    } catch (const os::LibraryError& error) {
        return {wrong("report file", error.what(), reinstall)};
    }
}

Findings checkPictures(const Desk& desk) {
    return {pictureFinding(desk)};
}

} // namespace opd::host
