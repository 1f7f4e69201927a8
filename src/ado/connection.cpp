#include "ado/connection.h"

#include "ado/error.h"
#include "ado/recordset.h"

#include <utility>

namespace opd::ado {

/// Tells, when a statement is done, that nothing waits any more.
class Connection::Running {
  public:
    explicit Running(Connection& connection, Effect effect = Effect::Writes) : m_connection(connection) {
        m_connection.m_statementBegan = std::chrono::steady_clock::now();
        m_connection.m_mayBeGivenUp = effect == Effect::Reads && !connection.m_inTransaction;
    }
    ~Running() {
        if (std::exchange(m_connection.m_toldWaiting, false) && m_connection.m_waiting)
            m_connection.m_waiting({.isOver = true});
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    Connection& m_connection;
};

void Connection::Open(const std::string& connectionString) {
    if (m_link)
        throw Error("The connection is open already.", "Connection");
    m_inTransaction = false;
    const Running running(*this);
    m_link = m_providers.open(ado::ConnectionString{connectionString.empty() ? ConnectionString : connectionString},
                              [this](Link::WaitsFor what) { return waits(what); });
    m_link->setPatience(m_patience);
}

void Connection::Close() {
    m_link.reset();
    m_inTransaction = false;
}

Recordset Connection::Execute(const Statement& statement, Effect effect) {
    return Recordset{run({.text = statement.str(), .effect = effect})};
}

void Connection::BeginTrans() {
    traced("begin");
    const Running running(*this);
    link().begin();
    m_inTransaction = true;
}

void Connection::CommitTrans() {
    traced("commit");
    const Running running(*this);
    link().commit();
    m_inTransaction = false;
}

// The database is told first: whatever becomes of the trace, nothing stays half done.
void Connection::RollbackTrans() {
    m_inTransaction = false;
    link().rollback();
    traced("rollback");
}

ResultSet Connection::run(const Request& request) {
    traced(request.text);
    const Running running(*this, request.effect);
    return link().run(request);
}

std::vector<Value> Connection::call(const Call& call) {
    std::string marks;
    for (std::size_t i = 0; i < call.outputs.size(); ++i)
        marks += i == 0 ? "?" : ",?";
    traced("{call " + call.procedure + "(" + marks + ")}");
    const Running running(*this);
    return link().call(call);
}

void Connection::setPatience(std::chrono::milliseconds patience) {
    m_patience = patience;
    if (m_link)
        m_link->setPatience(patience);
}

bool Connection::waits(Link::WaitsFor what) {
    m_toldWaiting = true;
    if (!m_waiting)
        return true;
    const auto lasted = std::chrono::steady_clock::now() - m_statementBegan;
    const bool mayBeGivenUp = m_mayBeGivenUp || what == Link::WaitsFor::Login;
    const bool goesOn = m_waiting(
        {.lasted = std::chrono::duration_cast<std::chrono::milliseconds>(lasted), .mayBeGivenUp = mayBeGivenUp});
    return goesOn || !mayBeGivenUp;
}

Link& Connection::link() const {
    if (!m_link)
        throw Error("The connection to the hospital's database is not open.", "Connection", 0, "08003");
    return *m_link;
}

void Connection::traced(const std::string& line) const {
    if (!m_trace)
        return;
    try {
        m_trace(line);
    } catch (...) { // see setTrace
    }
}

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    m_connection.BeginTrans();
}

Transaction::~Transaction() {
    if (!m_connection.inTransaction())
        return;
    try {
        m_connection.RollbackTrans();
    } catch (...) { // see the class's comment
    }
}

void Transaction::commit() {
    m_connection.CommitTrans();
}

} // namespace opd::ado
