#pragma once

#include "ado/connection.h"
#include "demonstration/population.h"

#include <functional>
#include <optional>
#include <string>

namespace opd::setup {

/// What a hospital on a server is to be.
struct ServerOptions {
    int patients = 0; ///< synthetic ones, for a hospital that has none
    unsigned seed = 1;
    DateTime today;         ///< the day that their ages and visits are reckoned from
    std::string clientCode; ///< of the hospital that has no settings yet, as are name and address
    std::string hospitalName = "SAN ROQUE GENERAL HOSPITAL";
    std::string address = "128 MABINI STREET, MANILA";
    std::optional<std::string> deskPassword; ///< makes the login "opd" for the desks, where there is none
};

/// Where the making of a hospital has come to.
struct ServerProgress {
    std::string step; ///< the script, or what else is done
    int done = 0;
    int total = 0;
};

/// Makes a hospital on the server of an open connection, whose user administers the server. All of it can be done
/// again: what is there already stays, and what an interrupted run has left out is made.
class ServerSetup {
  public:
    using Progress = std::function<void(const ServerProgress&)>;

    explicit ServerSetup(ado::Connection& connection, Progress progress = {})
        : m_connection(connection), m_progress(std::move(progress)) {}

    /// Sends the scripts, then adds the patients, all of them or none. Returns false when it left them out because the
    /// hospital has patients. Throws ado::Error with the script and line of the batch that failed.
    bool make(const ServerOptions& options);

    /// Sends one script.
    void send(const std::string& name, const std::string& script);

  private:
    bool addPatients(const ServerOptions& options);
    void run(const std::string& text);
    void tell(const std::string& step, int done, int total) const;

    ado::Connection& m_connection;
    Progress m_progress;
};

} // namespace opd::setup
