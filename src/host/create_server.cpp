#include "adapters/settings/ini_store.h"
#include "ado/provider_module.h"
#include "base/os/library.h"
#include "base/os/system_clock.h"
#include "component/init_dll.h"
#include "host/commands.h"
#include "host/program_folder.h"

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

std::string serverSetting(const std::string& key) {
    return settings::IniStore{}.get(connectionSettingsApplication, serverSettingsSection, key);
}

} // namespace

void createServer(const CreateServerOptions& options) {
    const ado::LogOn administrator = logOnOf(options);
    setup::ServerOptions hospital = options.hospital;
    if (options.deskPasswordFromInput)
        hospital.deskPassword = passwordFromInput();
    if (!hospital.today.isSet())
        hospital.today = os::SystemClock{}.now().date();
    ado::Providers providers;
    providers.add("server", std::make_shared<ado::ModuleProvider>(programFolder(), &serverSetting));
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
