#pragma once

#include "base/clock/clock.h"
#include "server/statement_log.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace opd::testserver {

struct Options {
    std::filesystem::path folder; ///< of the hospital that answers
    std::string user = "desk";
    std::string password = "Desk-1234";
    std::uint16_t port = 0;    ///< any free one
    std::string standInPrefix; ///< of its databases, where it stands in for a server that is to be proved; stand_in.h
    bool requireEncryption = false; ///< which it does not have: every client is to refuse
    std::filesystem::path log;      ///< of the statements; none without it
    std::vector<std::string> faults;
    std::vector<std::string> lacking; ///< procedures, and arguments ("procedure@argument"), that its list leaves out
};

/// A server on the loopback interface that speaks TDS, each connection a thread with its own session of the embedded
/// database. It serves until it is destroyed.
class Server {
  public:
    /// The clock, which outlives the server, is the database's server date. Throws std::runtime_error when it cannot
    /// listen or the log cannot be written, and std::invalid_argument for a fault that is none.
    Server(const Options& options, const Clock& clock);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    std::uint16_t port() const;

    /// See Faults.
    void addFault(const std::string& fault);
    void clearFaults();

    /// The statements and logins ("login USER DATABASE") that came, without what drivers send by themselves.
    std::vector<Received> received() const;
    void forgetReceived();

    /// Drops every connection; new ones are taken.
    void dropAll();

  private:
    class Listener;
    std::unique_ptr<Listener> m_listener;
};

} // namespace opd::testserver
