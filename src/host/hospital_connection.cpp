#include "host/hospital_connection.h"

#include "adapters/settings/ini_store.h"
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

settings::IniStore storeOf(const std::string& file) {
    return file.empty() ? settings::IniStore{} : settings::IniStore{file};
}

} // namespace

HospitalConnection::HospitalConnection(const HospitalOptions& options) {
    static const os::SystemClock clock;
    m_providers.add("folder", adapters::sqlite::makeSqliteProvider(clock));
    m_providers.add("server", std::make_shared<ado::ModuleProvider>(
                                  programFolder(), [file = options.settings](const std::string& key) -> std::string {
                                      return storeOf(file).get(connectionSettingsApplication, serverSettingsSection,
                                                               key);
                                  }));
    const ado::LogOn logOn = logOnOf(options);
    if (ado::isFolder(logOn.server))
        m_folder = logOn.server;
    m_connection.setPatience(patience);
    m_connection.Open(ado::connectionString(logOn));
}

/// Where the hospital is, and who asks: what is configured, unless the command says otherwise.
ado::LogOn HospitalConnection::logOnOf(const HospitalOptions& options) {
    const settings::IniStore store = storeOf(options.settings);
    const auto configured = [&](const char* key) {
        return store.get(connectionSettingsApplication, connectionSettingsSection, key);
    };
    if (!options.database.empty()) { // a folder, also where there is none of that name
        const std::string folder = std::filesystem::absolute(options.database).string();
        refuseSemicolon("folder", folder);
        return {{}, {}, folder, "LABORATORY"};
    }
    ado::LogOn logOn{configured("User"), configured("Password"), configured("Server"), "LABORATORY"};
    if (logOn.server.empty())
        throw std::runtime_error("No database is configured. Name a hospital's folder with --database FOLDER.");
    if (!options.user.empty())
        logOn.user = options.user;
    if (options.passwordFromInput)
        logOn.password = passwordFromInput();
    refuseSemicolon("user", logOn.user);
    refuseSemicolon("password", logOn.password);
    return logOn;
}

} // namespace opd::host
