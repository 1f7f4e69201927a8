// The test server as a program: prints its port, then takes a line of standard input at a time ("fault KIND@WHERE",
// "clear", "drop") and answers each with "ok" or what is wrong with it. It ends with its input, or with SIGTERM.
#include "base/clock/date_text.h"
#include "base/os/system_clock.h"
#include "server/server.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <iostream>
#include <memory>

using namespace opd;

namespace {

/// Stands where OPD_NOW says; runs without it.
std::unique_ptr<Clock> clockOfProcess() {
    const char* now = std::getenv("OPD_NOW");
    if (now == nullptr)
        return std::make_unique<os::SystemClock>();
    return std::make_unique<FixedClock>(parseMoment(now).value());
}

void obey(testserver::Server& server, const std::string& line) {
    constexpr std::string_view fault = "fault ";
    if (line.starts_with(fault))
        server.addFault(line.substr(fault.size()));
    else if (line == "clear")
        server.clearFaults();
    else if (line == "drop")
        server.dropAll();
    else
        throw std::invalid_argument("no command: " + line);
}

void serve(const testserver::Options& options) {
    const std::unique_ptr<Clock> clock = clockOfProcess();
    testserver::Server server(options, *clock);
    std::cout << server.port() << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
        try {
            obey(server, line);
            std::cout << "ok" << std::endl;
        } catch (const std::invalid_argument& wrong) {
            std::cout << wrong.what() << std::endl;
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    testserver::Options options;
    CLI::App app{
        "A server of the TDS protocol for tests, on the loopback interface, with a hospital folder behind it."};
    app.add_option("FOLDER", options.folder, "Folder of a hospital")->required()->check(CLI::ExistingDirectory);
    app.add_option("--port", options.port, "Port; any free one without it");
    app.add_option("--user", options.user, "Who may log in")->capture_default_str();
    app.add_option("--password", options.password, "With which password")->capture_default_str();
    app.add_flag("--require-encryption", options.requireEncryption, "Demand the encryption that it does not have");
    app.add_option("--stand-in", options.standInPrefix,
                   "Stand in for a server that is to be proved: the prefix of its databases");
    app.add_option("--log", options.log, "File for the statements that come");
    app.add_option("--fault", options.faults, "What goes wrong: KIND@WHERE[:ARGUMENT]");
    app.add_option("--lacking", options.lacking, "What its list of procedures leaves out: PROCEDURE[@ARGUMENT]");
    CLI11_PARSE(app, argc, argv);
    try {
        serve(options);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
