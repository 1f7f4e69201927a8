#include "host/hospital_connection.h"

#include "adapters/sqlite/provider.h"
#include "ado/provider_module.h"
#include "base/os/system_clock.h"
#include "component/init_dll.h"
#include "host/program_folder.h"

#include <chrono>
#include <stdexcept>

namespace opd::host {

namespace {

/// How long an administrator waits for the desks.
constexpr std::chrono::minutes patience{1};

} // namespace

std::string configuredServer(const settings::Store& store) {
    std::string server = store.get(connectionSettingsApplication, connectionSettingsSection, "Server");
    if (server.empty())
        throw std::runtime_error("No database is configured. Name a hospital's folder with --database FOLDER.");
    return server;
}

std::shared_ptr<ado::Provider> serverProvider(const settings::Store& store) {
    return std::make_shared<ado::ModuleProvider>(programFolder(), [&store](const std::string& key) {
        return store.get(connectionSettingsApplication, serverSettingsSection, key);
    });
}

HospitalConnection::HospitalConnection(const HospitalOptions& options) : m_store(options.settings) {
    m_providers.add("folder", adapters::sqlite::makeSqliteProvider(os::machineClock()));
    m_providers.add("server", serverProvider(m_store));
    const ado::LogOn logOn = logOnOf(options);
    if (ado::isFolder(logOn.server))
        m_folder = logOn.server;
    m_connection.setPatience(patience);
    m_connection.Open(ado::connectionString(logOn));
}

/// Where the hospital is, and who asks: what is configured, unless the command says otherwise.
ado::LogOn HospitalConnection::logOnOf(const HospitalOptions& options) const {
    const auto configured = [&](const char* key) {
        return m_store.get(connectionSettingsApplication, connectionSettingsSection, key);
    };
    if (!options.database.empty()) { // a folder, also where there is none of that name
        const std::string folder = std::filesystem::absolute(options.database).string();
        refuseSemicolon("folder", folder);
        return {{}, {}, folder, "LABORATORY"};
    }
    ado::LogOn logOn{configured("User"), configured("Password"), configuredServer(m_store), "LABORATORY"};
    if (!options.user.empty())
        logOn.user = options.user;
    if (options.passwordFromInput)
        logOn.password = passwordFromInput();
    refuseSemicolon("user", logOn.user);
    refuseSemicolon("password", logOn.password);
    return logOn;
}

} // namespace opd::host
