#include "component/composition.h"

#include "adapters/image/picture_files.h"
#include "adapters/settings/ini_store.h"
#include "adapters/sqlite/provider.h"
#include "ado/provider_module.h"
#include "base/clock/date_text.h"
#include "base/os/library.h"
#include "base/os/system_clock.h"
#include "component/environment.h"
#include "component/init_dll.h"
#include "component/stored_prints.h"
#include "component/trace_file.h"
#include "data/connection_settings.h"
#include "ports/report/no_prints.h"

#include <cstdlib>
#include <optional>
#include <stdexcept>

namespace opd {

std::string environment::value(const char* variable) {
    const char* found = std::getenv(variable);
    return found != nullptr ? found : std::string{};
}

namespace composition {

std::unique_ptr<settings::Store> makeStore() {
    if (const std::string folder = environment::value(environment::database); !folder.empty())
        return std::make_unique<settings::FixedStore>(folder);
    return std::make_unique<settings::IniStore>(environment::value(environment::settings));
}

namespace {

std::string serverSetting(const std::string& key) {
    return makeStore()->get(data::settingsApplication, serverSettingsSection, key);
}

} // namespace

void addProviders(com::Server& server) {
    // Once: a second one would take the first one away from the connections of another thread.
    static const bool added = [&server] {
        const auto use = [&server] { return std::make_shared<com::Server::Use>(server); };
        ado::Providers::ofProcess().add("sqlite", adapters::sqlite::makeSqliteProvider(clock(), use));
        ado::Providers::ofProcess().add("server",
                                        std::make_shared<ado::ModuleProvider>(moduleFolder(), &serverSetting));
        return true;
    }();
    static_cast<void>(added);
}

void traceStatements(ado::Connection& connection) {
    const std::string file = environment::value(environment::trace);
    if (file.empty())
        return;
    static const auto trace = std::make_shared<TraceFile>(file, tellUser);
    connection.setTrace([shared = trace](const std::string& statement) { shared->write(statement); });
}

void drawWhileWaiting(ado::Connection& connection) {
    connection.setWaiting([](const ado::Connection::Wait& wait) {
        ui::Desktop* const desktop = ui::Desktop::ofThread();
        if (desktop == nullptr)
            return true;
        if (!wait.isOver)
            return desktop->showWaiting(wait.lasted, wait.mayBeGivenUp);
        desktop->endWaiting();
        return true;
    });
}

namespace {

std::unique_ptr<const Clock> makeClock() {
    const std::string now = environment::value(environment::now);
    if (now.empty())
        return std::make_unique<os::SystemClock>();
    if (const std::optional<DateTime> moment = parseMoment(now))
        return std::make_unique<FixedClock>(*moment);
    throw std::runtime_error("\"" + now + "\" in " + environment::now + " is no moment such as \"03/07/2026 14:05\".");
}

} // namespace

const Clock& clock() {
    static const std::unique_ptr<const Clock> ofProcess = makeClock();
    return *ofProcess;
}

const ImageCodec& images() {
    static const adapters::PictureFiles files;
    return files;
}

report::PrintMemory& prints() {
    static StoredPrints stored{settings::IniStore{}};
    static report::NoPrints none;
    return environment::value(environment::script).empty() ? static_cast<report::PrintMemory&>(stored) : none;
}

std::filesystem::path moduleFolder() {
    return os::libraryOf(reinterpret_cast<const void*>(&moduleFolder)).parent_path();
}

} // namespace composition

} // namespace opd
