#include "ado/provider_module.h"
#include "base/clock/date_text.h"
#include "component/environment.h"
#include "host/commands.h"

#include <CLI/CLI.hpp>
#include <fmt/core.h>

#include <csignal>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

using namespace opd;

namespace {

const CLI::Validator desktop{[](const std::string& name) {
                                 return host::hasDesktop(name) ? std::string{} : "there is no desktop \"" + name + "\"";
                             },
                             ""};

const CLI::Validator moment{[](const std::string& text) {
                                return parseMoment(text) ? std::string{}
                                                         : "\"" + text + "\" is no moment such as \"03/07/2026 14:05\"";
                            },
                            "MM/dd/yyyy hh:mm"};

/// What was asked for on the command line.
struct CommandLine {
    CLI::App app{"The registration desk of a hospital's out-patient department.", "opd-desk"};
    std::string folder;
    adapters::sqlite::DatabaseOptions hospital;
    std::string hospitalsDay;
    host::CreateServerOptions server;
    host::ConfigureOptions settings;
    host::RunOptions session;
    host::SqlOptions shell;
    host::AdministerOptions administration;
    std::function<void()> command;

    CommandLine() {
        app.set_version_flag("--version", "opd-desk " OPD_VERSION);
        app.require_subcommand(0, 1); // its own message names no word; see refuseUnknownWords
        app.allow_extras();
        addCreateDatabase();
        addCreateServer();
        addConfigure();
        addRun();
        addSql();
        addAdministration();
    }

    /// Throws unless the words were understood, naming the first that was not.
    void refuseUnknownWords() const {
        const std::string commands =
            "There are create-database, create-server, configure, run, sql, backup, restore, check, flag, hospital and "
            "statistics.";
        const std::vector<std::string> unknown = app.remaining(true);
        if (!unknown.empty() && app.get_subcommands().empty())
            throw std::runtime_error("There is no command \"" + unknown.front() + "\". " + commands);
        if (!unknown.empty())
            throw std::runtime_error("\"" + unknown.front() + "\" is no option of \"" +
                                     app.get_subcommands().front()->get_name() +
                                     "\"; \"--help\" behind it lists them.");
        if (!command)
            throw std::runtime_error("A subcommand is missing. " + commands);
    }

    void addCreateDatabase() {
        CLI::App* sub =
            app.add_subcommand("create-database", "Make a hospital with synthetic patients in a new folder.")
                ->allow_extras();
        sub->add_option("FOLDER", folder, "New or empty folder on a local disk")->required();
        sub->add_option("--patients", hospital.patients, "How many patients are on file")
            ->capture_default_str()
            ->check(CLI::Range(0, 10'000'000));
        sub->add_option("--seed", hospital.seed, "The same seed makes the same hospital")->capture_default_str();
        sub->add_option("--client", hospital.clientCode, "Client code of the hospital");
        sub->add_option("--name", hospital.hospitalName, "Name of the hospital");
        sub->add_option("--address", hospital.address, "Address of the hospital");
        sub->add_option("--now", hospitalsDay, "The hospital's own day; today without it")
            ->envname(environment::now)
            ->check(moment);
        sub->callback([this] { command = [this] { createHospital(); }; });
    }

    void createHospital() {
        if (!hospitalsDay.empty())
            hospital.now = parseMoment(hospitalsDay);
        host::createHospital(folder, hospital);
    }

    void addCreateServer() {
        CLI::App* sub = app.add_subcommand("create-server", "Make a hospital on a database server, or complete one.")
                            ->allow_extras();
        sub->add_option("--server", server.server, "Name of the server, perhaps with a comma and the port")->required();
        sub->add_option("--user", server.user, "Administrator of the server; integrated security without it");
        sub->add_flag("--password-stdin", server.passwordFromInput, "Read the password from standard input, one line");
        sub->add_flag("--desk-password-stdin", server.deskPasswordFromInput,
                      "Make the login \"opd\" for the desks; its password is the next line of standard input");
        sub->add_option("--patients", server.hospital.patients, "Synthetic patients for a hospital that has none")
            ->capture_default_str()
            ->check(CLI::Range(0, 10'000'000));
        sub->add_option("--seed", server.hospital.seed, "The same seed makes the same patients")->capture_default_str();
        sub->add_option("--client", server.hospital.clientCode, "Client code of a hospital without settings");
        sub->add_option("--name", server.hospital.hospitalName, "Name of a hospital without settings");
        sub->add_option("--address", server.hospital.address, "Address of a hospital without settings");
        sub->add_option("--now", hospitalsDay, "The hospital's own day; today without it")
            ->envname(environment::now)
            ->check(moment);
        sub->callback([this] { command = [this] { createServer(); }; });
    }

    void createServer() {
        if (!hospitalsDay.empty())
            server.hospital.today = parseMoment(hospitalsDay)->date();
        host::createServer(server);
    }

    void addConfigure() {
        CLI::App* sub =
            app.add_subcommand("configure", "Store where the hospital's database is, for this user.")->allow_extras();
        sub->add_option("--server", settings.server, "NAME or NAME,PORT of a database server, or folder of a hospital")
            ->required();
        sub->add_option("--user", settings.user, "Login at the server; integrated security without it");
        sub->add_flag("--password-stdin", settings.passwordFromInput,
                      "Read the password from standard input, one line");
        sub->add_option("--driver", settings.driver, "ODBC driver of the server; \"\" for FreeTDS");
        sub->add_option("--encrypt", settings.encrypt, "\"required\" refuses a login without encryption; \"\" does not")
            ->check(CLI::IsMember({"", ado::server_setting::encryptRequired}));
        sub->add_option("--login-timeout", settings.loginTimeout, "Seconds to wait for a login; 15 without it")
            ->check(CLI::Range(1, 3600));
        sub->add_option("--statement-timeout", settings.statementTimeout,
                        "Seconds to wait for an answer of the server; 30 without it")
            ->check(CLI::Range(1, 3600));
        sub->add_option("--pictures", settings.pictures,
                        "Folder of the patients' photographs; beside a hospital's database without it");
        sub->add_option("--watch-other-desks", settings.watchOtherDesks,
                        "Before a visit is updated, ask what other desks stored into it meanwhile; yes without it")
            ->check(CLI::IsMember({"yes", "no"}));
        sub->add_option("--settings", settings.settings, "Settings file instead of the user's own");
        sub->callback([this] { command = [this] { host::configure(settings); }; });
    }

    void addRun() {
        CLI::App* sub = app.add_subcommand("run", "Open the desk.")->allow_extras();
        CLI::Option* database = sub->add_option("--database", session.database, "Folder of a hospital, for this run");
        sub->add_option("--settings", session.settings, "Settings file instead of the user's own")->excludes(database);
        sub->add_option("--user", session.user, "User stamped into visits; the login name without it");
        sub->add_option("--search", session.search, "Last name to begin with");
        sub->add_option("--desktop", session.desktop, "Windows of that toolkit, or \"scripted\": none")
            ->capture_default_str()
            ->check(desktop);
        sub->add_option("--script", session.script, "Operator script that works the desk");
        sub->add_option("--trace", session.trace, "File for every statement sent; may hold patient data");
        sub->add_option("--journal", session.journal,
                        "File for what the script's commands change on the screen; may hold patient data");
        sub->add_option("--now", session.now, "Where the clock of desk and hospital stands; it runs without it")
            ->envname(environment::now)
            ->check(moment);
        sub->add_option("--camera-file", session.cameraFile, "Picture that stands in for the camera");
        sub->callback([this] { command = [this] { host::run(session); }; });
    }

    void addSql() {
        CLI::App* sub = app.add_subcommand("sql", "Open the SQLite shell on a hospital.");
        sub->add_option("FOLDER", shell.folder, "Folder of a hospital")->required();
        sub->add_option("STATEMENT", shell.statements, "What the shell runs; its input without one");
        sub->add_flag("--write", shell.writable, "Let the shell change the hospital; no desk may be working");
        sub->callback([this] { command = [this] { host::sql(shell); }; });
    }

    /// A command about a hospital in a folder.
    CLI::App* administer(const char* name, const char* what, void (*does)(const host::AdministerOptions&)) {
        CLI::App* sub = app.add_subcommand(name, what)->allow_extras();
        CLI::Option* database = sub->add_option("--database", administration.database,
                                                "Folder of a hospital; the configured one without it");
        sub->add_option("--settings", administration.settings, "Settings file instead of the user's own")
            ->excludes(database);
        sub->callback([this, does] { command = [this, does] { does(administration); }; });
        return sub;
    }

    void addAdministration() {
        administer("backup", "Write the hospital as it is now into a new file; desks may work.", &host::backUp)
            ->add_option("FILE", administration.file, "The file; there must be none yet")
            ->required();
        administer("restore", "Put a backup in the hospital's place and keep what was there.", &host::restore)
            ->add_option("FILE", administration.file, "The file of a backup")
            ->required();
        administer("check", "Look for faults in a hospital or a backup; status 1 when there are any.", &host::check)
            ->add_option("FILE", administration.file, "The file of a backup instead of the hospital");
        CLI::App* flag =
            administer("flag", "Show the hospital's optional behaviours, or turn one on or off.", &host::flag);
        flag->add_option("NAME", administration.flag, "One of them, in any letter case");
        flag->add_option("STATE", administration.onOrOff, "Turn it on or off")->check(CLI::IsMember({"on", "off"}));
        CLI::App* names = administer("hospital", "Show or change what the hospital is called.", &host::hospital);
        names->add_option("--name", administration.names.name, "On the data sheet and in the windows");
        names->add_option("--address", administration.names.address, "Below the name");
        names->add_option("--client", administration.names.clientCode, "Client code");
        CLI::App* statistics =
            administer("statistics", "Count the visits by day, user and service.", &host::statistics);
        statistics->add_option("--from", administration.from, "First day, MM/dd/yyyy; six days before the last");
        statistics->add_option("--until", administration.until, "Last day; today without it");
    }
};

int fail(std::string message) {
    for (char& character : message)
        if (character == '\n' || character == '\r')
            character = ' ';
    fmt::print(stderr, "opd-desk: {}\n", message);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow fails to be written, and ends no registration
    try {
        CommandLine line;
        try {
            line.app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
                return line.app.exit(error); // help or version, on standard output
            return fail(error.what());
        }
        line.refuseUnknownWords();
        line.command();
        return 0;
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
