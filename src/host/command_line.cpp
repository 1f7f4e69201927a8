#include "host/command_line.h"

#include "ado/provider_module.h"
#include "base/clock/date_text.h"
#include "component/environment.h"
#include "host/manual.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace opd::host {

namespace {

// What the value of an option is, as help calls it and the shell completes it.
constexpr const char* aFile = "FILE";
constexpr const char* aFolder = "FOLDER";
constexpr const char* aDay = "MM/dd/yyyy";
constexpr int mostPatients = 10'000'000;
constexpr int longestTimeout = 3600; // seconds

const CLI::Validator desktop{
    [](const std::string& name) { return hasDesktop(name) ? std::string{} : "there is no desktop \"" + name + "\""; },
    ""};

const CLI::Validator moment{[](const std::string& text) {
                                return parseMoment(text) ? std::string{}
                                                         : "\"" + text + "\" is no moment such as \"03/07/2026 14:05\"";
                            },
                            "MM/dd/yyyy hh:mm"};

/// An empty one is what a script's unset variable gives: it names neither another place nor the usual one.
const CLI::Validator named{
    [](const std::string& name) { return name.empty() ? std::string{"the name is empty"} : std::string{}; }, ""};

/// The names of the commands, for a user who has met none: "a, b and c".
std::string listed(const CLI::App& app) {
    std::string list;
    const std::vector<const CLI::App*> commands = commandsOf(app);
    for (std::size_t place = 0; place < commands.size(); ++place)
        list += (place == 0 ? "" : place + 1 == commands.size() ? " and " : ", ") + commands[place]->get_name();
    return list;
}

} // namespace

CommandLine::CommandLine() {
    app.set_version_flag("--version", "opd-desk " OPD_VERSION);
    app.require_subcommand(0, 1); // its own message names no word; see refuseUnknownWords
    app.allow_extras();
    app.footer("The status is 0 when all went well and 1 otherwise, with one line on standard error.");
    addRun();
    addConfigure();
    addCreateDatabase();
    addCreateServer();
    addSql();
    addHistory();
    addAdministration();
    addManual();
}

void CommandLine::refuseUnknownWords() const {
    const std::string commands = "There are " + listed(app) + ".";
    std::vector<std::string> unknown = app.remaining(true);
    std::erase(unknown, "--"); // behind it no word is an option
    if (!unknown.empty() && app.get_subcommands().empty())
        throw std::runtime_error("There is no command \"" + unknown.front() + "\". " + commands);
    if (!unknown.empty())
        throw std::runtime_error("\"" + unknown.front() + "\" is no option of \"" +
                                 app.get_subcommands().front()->get_name() + "\"; \"--help\" behind it lists them.");
    if (!command)
        throw std::runtime_error("A subcommand is missing. " + commands);
}

CLI::App* CommandLine::addCommand(const char* name, const char* what, std::function<void()> does) {
    CLI::App* sub = app.add_subcommand(name, what)->allow_extras();
    sub->callback([this, does = std::move(does)] { command = does; });
    return sub;
}

void CommandLine::addCreateDatabase() {
    CLI::App* sub = addCommand("create-database", "Make a hospital with synthetic patients in a new folder.", [this] {
        if (!hospitalsDay.empty())
            database.now = parseMoment(hospitalsDay);
        createHospital(folder, database);
    });
    sub->add_option("FOLDER", folder, "New or empty folder on a local disk")->required()->check(named);
    sub->add_option("--patients", database.patients, "How many patients are on file")
        ->capture_default_str()
        ->check(CLI::Range(0, mostPatients));
    sub->add_option("--seed", database.seed, "The same seed makes the same hospital")->capture_default_str();
    sub->add_option("--client", database.clientCode, "Client code of the hospital");
    sub->add_option("--name", database.hospitalName, "Name of the hospital");
    sub->add_option("--address", database.address, "Address of the hospital");
    sub->add_option("--now", hospitalsDay, "The hospital's own day; today without it")
        ->envname(environment::now)
        ->check(moment);
}

void CommandLine::addCreateServer() {
    CLI::App* sub = addCommand("create-server", "Make a hospital on a database server, or complete one.", [this] {
        if (!hospitalsDay.empty())
            server.hospital.today = parseMoment(hospitalsDay)->date();
        createServer(server);
    });
    sub->add_option("--server", server.server, "Name of the server, perhaps with a comma and the port")
        ->required()
        ->check(named);
    sub->add_option("--user", server.user, "Administrator of the server; integrated security without it");
    sub->add_flag("--password-stdin", server.passwordFromInput, "Read the password from standard input, one line");
    sub->add_flag("--desk-password-stdin", server.deskPasswordFromInput,
                  "Make the login \"opd\" for the desks; its password is the next line of standard input");
    sub->add_option("--patients", server.hospital.patients, "Synthetic patients for a hospital that has none")
        ->capture_default_str()
        ->check(CLI::Range(0, mostPatients));
    sub->add_option("--seed", server.hospital.seed, "The same seed makes the same patients")->capture_default_str();
    sub->add_option("--client", server.hospital.clientCode, "Client code of a hospital without settings");
    sub->add_option("--name", server.hospital.hospitalName, "Name of a hospital without settings");
    sub->add_option("--address", server.hospital.address, "Address of a hospital without settings");
    sub->add_option("--now", hospitalsDay, "The hospital's own day; today without it")
        ->envname(environment::now)
        ->check(moment);
}

void CommandLine::addConfigure() {
    CLI::App* sub = addCommand("configure", "Store where the hospital's database is, for this user.",
                               [this] { configure(settings); });
    sub->add_option("--server", settings.server,
                    "NAME or NAME,PORT of a database server, or folder of a hospital; what is stored without it")
        ->check(named);
    sub->add_option("--user", settings.user, "Login at the --server that is named; integrated security without it");
    sub->add_flag("--password-stdin", settings.passwordFromInput, "Read the password from standard input, one line");
    sub->add_option("--driver", settings.driver, "ODBC driver of the server; \"\" for FreeTDS");
    sub->add_option("--encrypt", settings.encrypt, "\"required\" refuses a login without encryption; \"\" does not")
        ->check(CLI::IsMember({"", ado::server_setting::encryptRequired}));
    sub->add_option("--login-timeout", settings.loginTimeout, "Seconds to wait for a login; 15 without it")
        ->check(CLI::Range(1, longestTimeout));
    sub->add_option("--statement-timeout", settings.statementTimeout,
                    "Seconds to wait for an answer of the server; 30 without it")
        ->check(CLI::Range(1, longestTimeout));
    sub->add_option("--pictures", settings.pictures,
                    "Folder of the patients' photographs; beside a hospital's database without it")
        ->type_name(aFolder);
    sub->add_option(
           "--watch-other-desks", settings.watchOtherDesks,
           "Before a visit or a patient on file is written, ask what other desks stored meanwhile; yes without it")
        ->check(CLI::IsMember({"yes", "no"}));
    sub->add_option(
           "--one-visit-a-day", settings.oneVisitADay,
           "Before a patient on file is registered, ask again whether another desk did that today; no without it")
        ->check(CLI::IsMember({"yes", "no"}));
    sub->add_option(
           "--carry-sex-and-birth-date", settings.carrySearch,
           "Put sex and birth date of a search into the form of the new patient that it leads to; no without it")
        ->check(CLI::IsMember({"yes", "no"}));
    sub->add_option("--quick-entry", settings.quickEntry,
                    "A birth date or pressure goes on by itself when its last digit is typed; no without it")
        ->check(CLI::IsMember({"yes", "no"}));
    sub->add_option("--settings", settings.settings, "Settings file instead of the user's own")
        ->type_name(aFile)
        ->check(named);
}

void CommandLine::addRun() {
    CLI::App* sub = addCommand("run", "Open the desk.", [this] { run(session); });
    CLI::Option* where = sub->add_option("--database", session.database, "Folder of a hospital, for this run");
    where->type_name(aFolder)->check(named);
    sub->add_option("--settings", session.settings, "Settings file instead of the user's own")
        ->type_name(aFile)
        ->excludes(where)
        ->check(named);
    sub->add_option("--user", session.user, "User stamped into visits; the login name without it");
    sub->add_option("--search", session.search, "Last name to begin with");
    sub->add_option("--desktop", session.desktop, "Windows of that toolkit, or \"scripted\": none")
        ->capture_default_str()
        ->check(desktop);
    sub->add_option("--script", session.script, "Operator script that works the desk")->type_name(aFile);
    sub->add_option("--trace", session.trace, "File for every statement sent; may hold patient data")->type_name(aFile);
    sub->add_option("--journal", session.journal,
                    "File for what the script's commands change on the screen; may hold patient data")
        ->type_name(aFile);
    sub->add_option("--now", session.now, "Where the clock of desk and hospital stands; it runs without it")
        ->envname(environment::now)
        ->check(moment);
    sub->add_option("--camera-file", session.cameraFile, "Picture that stands in for the camera")->type_name(aFile);
}

void CommandLine::addSql() {
    CLI::App* sub = addCommand("sql", "Open the SQLite shell on a hospital.", [this] { sql(shell); });
    sub->add_option("FOLDER", shell.folder, "Folder of a hospital")->required()->check(named);
    sub->add_option("STATEMENT", shell.statements, "What the shell runs; its input without one");
    sub->add_flag("--write", shell.writable, "Let the shell change the hospital; no desk may be working");
}

void CommandLine::addHistory() {
    CLI::App* sub = addCommand("history", "Show what was changed in a patient's record, by whom, where and when.",
                               [this] { history(audit); });
    sub->add_option("HOSPNUM", audit.hospNum, "The patient's hospital number")->required();
    addHospital(*sub, audit);
    addLogin(*sub, audit, "Login at the server instead of the desk's; a member of opd_audit");
}

void CommandLine::addHospital(CLI::App& sub, HospitalOptions& which) {
    CLI::Option* where =
        sub.add_option("--database", which.database, "Folder of a hospital; the configured one without it");
    where->type_name(aFolder)->check(named);
    sub.add_option("--settings", which.settings, "Settings file instead of the user's own")
        ->type_name(aFile)
        ->excludes(where)
        ->check(named);
}

void CommandLine::addLogin(CLI::App& sub, HospitalOptions& which, const char* whose) {
    sub.add_option("--user", which.user, whose)->excludes(sub.get_option("--database"));
    sub.add_flag("--password-stdin", which.passwordFromInput, "Read its password from standard input, one line");
}

/// A command about the hospital that is configured, or one in a folder.
CLI::App* CommandLine::administer(const char* name, const char* what, void (*does)(const AdministerOptions&)) {
    CLI::App* sub = addCommand(name, what, [this, does] { does(administration); });
    addHospital(*sub, administration);
    return sub;
}

void CommandLine::addAdministration() {
    administer("doctor",
               "Look at all that the desk needs here, and name what mends it; status 1 when anything is wrong.",
               &doctor);
    administer("backup", "Write the hospital as it is now into a new file; desks may work.", &backUp)
        ->add_option("FILE", administration.file, "The file; there must be none yet")
        ->required()
        ->check(named);
    administer("restore", "Put a backup in the hospital's place and keep what was there.", &restore)
        ->add_option("FILE", administration.file, "The file of a backup")
        ->required()
        ->check(named);
    administer("check", "Look for faults in a hospital or a backup; status 1 when there are any.", &check)
        ->add_option("FILE", administration.file, "The file of a backup instead of the hospital")
        ->check(named);
    CLI::App* flags = administer("flag", "Show the hospital's optional behaviours, or turn one on or off.", &flag);
    flags->add_option("NAME", administration.flag, "One of them, in any letter case");
    flags->add_option("STATE", administration.onOrOff, "Turn it on or off")->check(CLI::IsMember({"on", "off"}));
    addLogin(*flags, administration, "Login at the server instead of the desk's; one that may change tbHospitalInfo");
    CLI::App* names = administer("hospital", "Show or change what the hospital is called.", &hospital);
    names->add_option("--name", administration.names.name, "On the data sheet and in the windows");
    names->add_option("--address", administration.names.address, "Below the name");
    names->add_option("--client", administration.names.clientCode, "Client code");
    addLogin(*names, administration, "Login at the server instead of the desk's; one that may change tbHospitalInfo");
    CLI::App* visits = administer("statistics", "Count the visits by day, user and service.", &statistics);
    addLogin(*visits, administration, "Login at the server instead of the desk's");
    visits->add_option("--from", administration.from, "First day; six days before the last")->type_name(aDay);
    visits->add_option("--until", administration.until, "Last day; today without it")->type_name(aDay);
}

void CommandLine::addManual() {
    CLI::App* sub = addCommand("manual", "Write the manual pages and the shell's completion into a folder.",
                               [this] { writeManual(app, folder); });
    sub->add_option("FOLDER", folder, "The folder; it is made where there is none")->required();
    sub->group(""); // for who packs the program: named by no help, page or completion
}

} // namespace opd::host
