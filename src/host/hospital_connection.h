#pragma once

#include "ado/connection.h"
#include "host/commands.h"

#include <string>

namespace opd::host {

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
    static ado::LogOn logOnOf(const HospitalOptions& options);

    ado::Providers m_providers;
    ado::Connection m_connection{m_providers};
    std::string m_folder;
};

} // namespace opd::host
