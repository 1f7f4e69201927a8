#pragma once

#include "adapters/settings/ini_store.h"
#include "ado/connection.h"
#include "host/commands.h"

#include <memory>
#include <string>

namespace opd::host {

/// The server or folder that is configured in a store of settings. Throws std::runtime_error when there is none.
std::string configuredServer(const settings::Store& store);

/// The provider of database servers, reached as a store says that outlives it.
std::shared_ptr<ado::Provider> serverProvider(const settings::Store& store);

// What a server says of a table that is not there, and of one that the login may not read or change.
inline constexpr long noSuchTable = 208;
inline constexpr long mayNot = 229;

/// The hospital that a command is about, reached as a desk reaches it, be it a folder or a server's.
class HospitalConnection {
  public:
    /// Logs on. Throws ado::Error, and std::runtime_error where no hospital is named or configured.
    explicit HospitalConnection(const HospitalOptions& options);

    ado::Connection& connection() { return m_connection; }

    /// The folder; empty where it is a server.
    const std::string& folder() const { return m_folder; }

  private:
    ado::LogOn logOnOf(const HospitalOptions& options) const;

    settings::IniStore m_store;
    ado::Providers m_providers;
    ado::Connection m_connection{m_providers};
    std::string m_folder;
};

} // namespace opd::host
