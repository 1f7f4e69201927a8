#pragma once

#include "base/os/library.h"
#include "host/doctor/finding.h"
#include "ports/settings/store.h"

#include <filesystem>
#include <optional>

namespace opd::host {

/// What the checks of a workstation are about.
struct Desk {
    const settings::Store& settings;
    std::filesystem::path settingsFile; ///< empty when a folder was named in its place
    std::string server;                 ///< name of a server, or folder of a hospital; empty when none is known
    std::string option; ///< behind a command that changes the settings; names a file that is not the user's
};

/// Behind a finding whose command makes a user a member of a group.
inline constexpr const char* fromNextLogin = " (Who becomes a member of a group is one from the next login on.)";

/// The command that lets this user share a folder, and what is in it or will be, with the group of the folder; with one
/// that is made for it where that is the administrator's own.
std::string shareCommand(const std::filesystem::path& folder);

/// What is wrong with the disk below a folder, whoever asks: it is only read, or has no room. `what` is the finding's.
std::optional<Finding> diskFault(const char* what, const std::filesystem::path& folder);

/// The command that makes a library of the program usable again: others can change it, or it is not what was installed.
std::string libraryMend(const std::filesystem::path& file, const os::LibraryError& error);

/// The command that stores where a server is and this user's login again, which asks for the password.
std::string configureCommand(const Desk& desk, const std::string& server);

/// The settings file and what it says.
Findings checkSettings(const Desk& desk);

/// The program's own libraries, which nobody but the administrator may change.
Findings checkProgram();

/// An embedded hospital: rights, version, procedures, a connection, the clock.
Findings checkHospital(const Desk& desk);

/// A database server: the login, its version, each procedure with its arguments, the clock.
Findings checkServer(const Desk& desk);

/// The report files beside the program.
Findings checkReports();

/// The folder of the photographs.
Findings checkPictures(const Desk& desk);

/// What the windows need of the workstation: letters, printer, camera.
Findings checkWorkstation();

} // namespace opd::host
