#pragma once

#include "ado/provider.h"
#include "ado/statement.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace opd::ado {

class Recordset;

/// A connection to a database. One statement runs at a time; not for use by several threads.
class Connection {
  public:
    /// Is told every statement text as it is sent, and "begin", "commit", "rollback".
    using Trace = std::function<void(const std::string&)>;

    /// How long a statement, or the login before it, waits or works by now.
    struct Wait {
        std::chrono::milliseconds lasted{};
        bool mayBeGivenUp = false; ///< it reads, and belongs to no transaction; or it is a login
        bool isOver = false;       ///< it is done
    };

    /// Is told over and over while a statement waits or works for long, and once more when it is done. False gives up a
    /// statement that may be given up.
    using Waiting = std::function<bool(const Wait& wait)>;

    explicit Connection(const Providers& providers = Providers::ofProcess()) : m_providers(providers) {}
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::string ConnectionString; ///< read when the connection is opened

    /// Opens the connection with the string, or with `ConnectionString` when it is empty. Throws Error.
    void Open(const std::string& connectionString = {});

    /// Closes the connection; an open transaction is lost. Does nothing when it is closed already.
    void Close();

    /// 0 closed, 1 open.
    int State() const { return m_link ? 1 : 0; }

    /// Runs a statement and returns its rows, if it has any. Throws Error.
    Recordset Execute(const Statement& statement, Effect effect = Effect::Writes);

    /// One transaction at a time. Each throws Error.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();

    /// True between BeginTrans and the commit or rollback that ends it.
    bool inTransaction() const { return m_inTransaction; }

    /// Sets what is told every statement; an empty function ends the trace. What the trace throws is lost: it never
    /// touches the statement.
    void setTrace(Trace trace) { m_trace = std::move(trace); }

    /// How long a statement, a commit too, waits for a database that others hold before it fails.
    std::chrono::milliseconds patience() const { return m_patience; }
    void setPatience(std::chrono::milliseconds patience);

    /// Sets what is told while statements wait. It uses no database and throws nothing.
    void setWaiting(Waiting waiting) { m_waiting = std::move(waiting); }

    /// For recordsets and commands: runs a request or a call on the open link, tracing it. Throws Error when closed.
    ResultSet run(const Request& request);
    std::vector<Value> call(const Call& call);

  private:
    class Running;

    Link& link() const;
    void traced(const std::string& line) const;
    bool waits(Link::WaitsFor what);

    const Providers& m_providers;
    std::unique_ptr<Link> m_link;
    Trace m_trace;
    Waiting m_waiting;
    std::chrono::milliseconds m_patience{std::chrono::seconds{15}};
    std::chrono::steady_clock::time_point m_statementBegan;
    bool m_mayBeGivenUp = false;
    bool m_toldWaiting = false;
    bool m_inTransaction = false;
};

/// Lets the statements of its scope wait longer: those that complete what is stored already.
class LongPatience {
  public:
    explicit LongPatience(Connection& connection) : m_connection(connection), m_before(connection.patience()) {
        m_connection.setPatience(times * m_before);
    }
    ~LongPatience() { m_connection.setPatience(m_before); }
    LongPatience(const LongPatience&) = delete;
    LongPatience& operator=(const LongPatience&) = delete;

  private:
    static constexpr int times = 4;

    Connection& m_connection;
    std::chrono::milliseconds m_before;
};

/// A transaction that rolls back at the end of its scope unless it was committed. A rollback that fails, or a trace of
/// it, is ignored: the failure that ended the scope is the one to report, and a lost connection has rolled back by
/// itself.
class Transaction {
  public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

  private:
    Connection& m_connection;
};

} // namespace opd::ado
