#pragma once

#include "host/commands.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

namespace opd::host {

/// What was asked for on the command line. Every command and every option stands here once, with what its value is
/// (FILE, FOLDER, a choice): the help, the manual pages and the completion of the shell are all made of `app`.
class CommandLine {
  public:
    CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Throws unless the words that `app` has read were understood, naming the first that was not.
    void refuseUnknownWords() const;

    CLI::App app{"The registration desk of a hospital's out-patient department.", "opd-desk"};
    std::function<void()> command; ///< does what was asked for

  private:
    void addCreateDatabase();
    void addCreateServer();
    void addConfigure();
    void addRun();
    void addSql();
    void addHistory();
    void addAdministration();
    void addManual();
    CLI::App* addCommand(const char* name, const char* what, std::function<void()> does);
    static void addHospital(CLI::App& sub, HospitalOptions& which);
    static void addLogin(CLI::App& sub, HospitalOptions& which, const char* whose);
    CLI::App* administer(const char* name, const char* what, void (*does)(const AdministerOptions&));

    std::string folder;
    adapters::sqlite::DatabaseOptions database;
    std::string hospitalsDay;
    CreateServerOptions server;
    ConfigureOptions settings;
    RunOptions session;
    SqlOptions shell;
    HistoryOptions audit;
    AdministerOptions administration;
};

} // namespace opd::host
