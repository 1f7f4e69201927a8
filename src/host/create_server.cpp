#include "base/os/system_clock.h"
#include "host/commands.h"
#include "host/hospital_connection.h"

#include <fmt/core.h>

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <unistd.h>

namespace opd::host {

namespace {

// A server may take its time over a database that it makes.
constexpr std::chrono::minutes patience{10};

void showProgress(const setup::ServerProgress& progress) {
    fmt::print(stderr, "\r\x1b[KMaking the hospital: {}, {} of {}", progress.step, progress.done, progress.total);
    std::fflush(stderr);
}

ado::LogOn logOnOf(const CreateServerOptions& options) {
    if (ado::isFolder(options.server))
        throw std::runtime_error("\"" + options.server + "\" is a folder: \"create-database\" makes a hospital there.");
    ado::LogOn logOn{options.user, options.passwordFromInput ? passwordFromInput() : std::string{}, options.server,
                     "master"};
    refuseSemicolon("server", logOn.server);
    refuseSemicolon("user", logOn.user);
    refuseSemicolon("password", logOn.password);
    return logOn;
}

} // namespace

void createServer(const CreateServerOptions& options) {
    const ado::LogOn administrator = logOnOf(options);
    setup::ServerOptions hospital = options.hospital;
    if (options.deskPasswordFromInput)
        hospital.deskPassword = passwordFromInput();
    if (!hospital.today.isSet())
        hospital.today = os::machineClock().now().date();
    const settings::IniStore store;
    ado::Providers providers;
    providers.add("server", serverProvider(store));
    ado::Connection connection(providers);
    connection.setPatience(patience);
    connection.Open(ado::connectionString(administrator));
    const bool onTerminal = ::isatty(STDERR_FILENO) == 1;
    setup::ServerSetup setup(connection, onTerminal ? showProgress : setup::ServerSetup::Progress{});
    const bool isComplete = setup.make(hospital);
    if (onTerminal)
        fmt::print(stderr, "\n");
    if (!isComplete)
        fmt::print(stderr, "opd-desk: the hospital has patients already; none were added.\n");
}

} // namespace opd::host
