#include "adapters/report/engine.h"
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

#include <set>
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
                     "opd-desk configure --server NAME|FOLDER");
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
    const os::SystemClock clock;
    const adapters::ReportEngine engine({.clock = clock});
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
            engine.open(file);
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
                       configureCommand(desk, shellWord(desk.server)) + " --pictures FOLDER");
    fs::path existing = folder;
    std::error_code unreadable;
    while (!fs::exists(existing, unreadable) && existing.has_relative_path())
        existing = existing.parent_path();
    const std::string at = shellWord(existing.string());
    if (!fs::is_directory(existing, unreadable))
        return wrong(what, "\"" + existing.string() + "\" is no folder.", "mv " + at + " " + at + ".old");
    if (::access(existing.c_str(), R_OK | W_OK | X_OK) != 0)
        return wrong(what, "This user cannot keep photographs in \"" + existing.string() + "\"." + fromNextLogin,
                     "sudo chmod g+rwx " + at + " && sudo usermod -a -G \"$(stat -c %G " + at + ")\" \"$USER\"");
    return right(what, folder + (existing == folder ? "" : ", which is made with the first photograph"));
}

} // namespace

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
           (user.empty() ? std::string{} : " --user " + shellWord(user) + " --password-stdin");
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
    for (const char* name : {"opd-registration", "opd-codesearch", "opd-desktop-qt"})
        found.push_back(libraryFinding(programFolder() / os::libraryFileName(name)));
    return found;
}

Findings checkReports() {
    return reportFindings();
}

Findings checkPictures(const Desk& desk) {
    return {pictureFinding(desk)};
}

} // namespace opd::host
