#pragma once

#include "adapters/sqlite/create_database.h"

#include <filesystem>
#include <string>
#include <vector>

/// The commands of the host program. Each throws std::runtime_error (or a descendant) with one clear message.
namespace opd::host {

struct ConfigureOptions {
    std::string server;
    std::string user;
    bool passwordFromInput = false;
    std::string pictures; ///< folder of the patients' photographs
    std::string settings; ///< file; the user's own store without it
};

struct RunOptions {
    std::string database;
    std::string settings;
    std::string user;
    std::string search;
    std::string desktop = "qt";
    std::string script;
    std::string trace;
    std::string cameraFile;
    std::string now; ///< "MM/dd/yyyy hh:mm", where the desk's clock stands; it runs without it
};

struct SqlOptions {
    std::string folder;
    std::vector<std::string> statements; ///< those of the input without them
    bool writable = false;
};

/// Makes an embedded hospital in a folder that is new or empty. Shows its progress when standard error is a terminal.
void createHospital(const std::filesystem::path& folder, const adapters::sqlite::DatabaseOptions& options);

/// Writes the workstation user's connection settings; the password is one line of standard input.
void configure(const ConfigureOptions& options);

/// True when the component finds a desktop of that name: none but "scripted", or a module beside the programs.
bool hasDesktop(const std::string& name);

/// Plays the host of the component: shows the search again and again until the clerk closes it.
void run(const RunOptions& options);

/// Becomes the SQLite shell, opened on a hospital with its collations and functions; returns only by an exception.
void sql(const SqlOptions& options);

} // namespace opd::host
