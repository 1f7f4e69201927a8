#pragma once

#include "adapters/odbc/driver_string.h"

#include <chrono>
#include <memory>
#include <sql.h>
#include <sqlext.h>

namespace opd::adapters::odbc {

template <SQLSMALLINT kind> struct FreeHandle {
    void operator()(SQLHANDLE handle) const { SQLFreeHandle(kind, handle); }
};
template <SQLSMALLINT kind> using Handle = std::unique_ptr<void, FreeHandle<kind>>;

/// One open connection of the driver. Used by one thread at a time, but for `Query::cancel`.
class Session {
  public:
    /// Logs on. Throws ado::Error.
    Session(const ado::ConnectionString& settings, const Options& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// True when the driver knows that the server is gone. It does not ask the server.
    bool isDead() const;

    /// Statements belong to a transaction while this is off. Throws ado::Error.
    void setAutoCommit(bool on);

    /// Ends the transaction by SQL_COMMIT or SQL_ROLLBACK. Throws ado::Error.
    void end(SQLSMALLINT how);

    SQLHDBC handle() const { return m_connection.get(); }

  private:
    Handle<SQL_HANDLE_ENV> m_environment;
    Handle<SQL_HANDLE_DBC> m_connection;
};

/// A statement of a session, which outlives it.
class Query {
  public:
    /// Throws ado::Error.
    Query(std::shared_ptr<Session> session, std::chrono::seconds timeout);

    SQLHSTMT handle() const { return m_statement.get(); }

    /// Asks the server to stop the statement; from any thread.
    void cancel() { SQLCancel(m_statement.get()); }

  private:
    std::shared_ptr<Session> m_session;
    Handle<SQL_HANDLE_STMT> m_statement;
};

} // namespace opd::adapters::odbc
