#pragma once

#include "contract/hospital.h"

#include <string>

namespace opd::prove {

/// The server that is to be proved, and who logs on to it: an administrator.
struct Server {
    std::string name; ///< "NAME" or "NAME,PORT"
    std::string user; ///< empty for who runs the program (Kerberos)
    std::string password;
};

/// A hospital in databases of its own on a server.
class Proof {
  public:
    /// Logs on. Throws ado::Error when the server cannot be reached, or refuses.
    explicit Proof(const Server& server);

    /// Throws ado::Error where databases of an earlier proof are there.
    void refuseEarlierOnes();

    /// Makes the databases with the patients of a generated hospital. Tells its progress on standard error. Throws
    /// ado::Error.
    void make();

    /// Takes databases and login away, those of an earlier proof as well. Throws ado::Error.
    void drop();

    /// Makes a login that has the role of the desks and nothing else. Throws ado::Error.
    void makeDeskLogin();

    /// A connection of that login. Throws ado::Error.
    std::unique_ptr<ado::Connection> connectAsDesk() const;

    /// A connection as a desk has one.
    std::unique_ptr<ado::Connection> connect() const { return connect("LABORATORY"); }

  private:
    std::unique_ptr<ado::Connection> connect(const std::string& catalog) const;

    Server m_server;
    ado::Providers m_providers;
    std::unique_ptr<ado::Connection> m_administrator;
    std::string m_deskPassword; ///< of the login; nobody else knows it
};

/// The proof of the one server that there is.
Proof& theProof();

} // namespace opd::prove
