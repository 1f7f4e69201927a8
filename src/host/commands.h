#pragma once

#include "adapters/sqlite/care/maintenance.h"
#include "adapters/sqlite/create_database.h"
#include "setup/server_setup.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// The commands of the host program. Each throws std::runtime_error (or a descendant) with one clear message.
namespace opd::host {

struct ConfigureOptions {
    std::string server;
    std::string user;
    bool passwordFromInput = false;
    std::string pictures;        ///< folder of the patients' photographs
    std::string quickEntry;      ///< "yes" or "no"; what is stored stays without it
    std::string watchOtherDesks; ///< "yes" or "no"; what is stored stays without it
    std::string oneVisitADay;    ///< whether a second registration of the day is refused within the save; likewise
    std::string carrySearch;     ///< whether sex and birth date go into a new patient's form; likewise
    std::string settings;        ///< file; the user's own store without it

    // How a database server is reached; what is not given stays as it is stored.
    std::optional<std::string> driver;
    std::optional<std::string> encrypt;
    std::optional<int> loginTimeout; ///< seconds
    std::optional<int> statementTimeout;
};

struct CreateServerOptions {
    std::string server;
    std::string user;
    bool passwordFromInput = false;
    bool deskPasswordFromInput = false; ///< of the login that the desks get; the line behind the first password
    setup::ServerOptions hospital;
};

struct RunOptions {
    std::string database;
    std::string settings;
    std::string user;
    std::string search;
    std::string desktop = "qt";
    std::string script;
    std::string trace;
    std::string journal;
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

/// Makes a hospital on a database server, or completes one. Shows its progress when standard error is a terminal.
void createServer(const CreateServerOptions& options);

/// One line of standard input. Throws when there is none.
std::string passwordFromInput();

/// Throws for a text that cannot be a value of a connection string, in which there is no way to quote a semicolon.
void refuseSemicolon(const char* what, const std::string& text);

/// Writes the workstation user's connection settings; the password is one line of standard input.
void configure(const ConfigureOptions& options);

/// True when the component finds a desktop of that name: none but "scripted", or a module beside the programs.
bool hasDesktop(const std::string& name);

/// Plays the host of the component: shows the search again and again until the clerk closes it.
void run(const RunOptions& options);

/// Which hospital a command is about.
struct HospitalOptions {
    std::string database; ///< folder of a hospital; the configured one without it
    std::string settings; ///< file that says which one that is, instead of the user's own
    std::string user;     ///< login at a server instead of the desk's
    bool passwordFromInput = false;
};

/// What the commands of an administrator are about.
struct AdministerOptions : HospitalOptions {
    std::string file; ///< of a backup
    std::string flag;
    std::string onOrOff;
    adapters::sqlite::HospitalNames names;
    std::string from; ///< "MM/dd/yyyy", as the next one; a week without them
    std::string until;
};

/// Writes the hospital as it is now into a new file.
void backUp(const AdministerOptions& options);

/// Puts a backup in the place of what the hospital holds, which is kept in a file beside it.
void restore(const AdministerOptions& options);

/// Says what is wrong with a hospital, or with a backup. Throws when anything is.
void check(const AdministerOptions& options);

/// Shows the optional behaviours, or one, or turns it on or off.
void flag(const AdministerOptions& options);

/// Changes what the hospital is called, and shows it.
void hospital(const AdministerOptions& options);

/// Shows the visits by day, desk user and service.
void statistics(const AdministerOptions& options);

/// Looks at everything that a workstation's desk needs, and says for each what is right, or what is wrong and which
/// command mends it. Throws when anything is wrong. Changes nothing, and shows no password.
void doctor(const AdministerOptions& options);

struct HistoryOptions : HospitalOptions {
    std::string hospNum;
};

/// Shows what saves changed in a patient's record, the newest first. Throws when nothing is known of it.
void history(const HistoryOptions& options);

/// Becomes the SQLite shell, opened on a hospital with its collations and functions; returns only by an exception.
void sql(const SqlOptions& options);

} // namespace opd::host
