#include "platform/ado/connection.h"

#include "platform/ado/error.h"
#include "platform/ado/recordset.h"

namespace opd::ado {

void Connection::Open(const std::string& connectionString) {
    if (m_link)
        throw Error("The connection is open already.", "Connection");
    m_link = m_providers.open(
        ado::ConnectionString{connectionString.empty() ? ConnectionString : connectionString});
    m_inTransaction = false;
}

void Connection::Close() {
    m_link.reset();
    m_inTransaction = false;
}

Recordset Connection::Execute(const std::string& statement) {
    return Recordset{run({statement, false, CursorLocation::Unspecified, CursorType::Unspecified,
                          LockType::Unspecified})};
}

void Connection::BeginTrans() {
    traced("begin");
    link().begin();
    m_inTransaction = true;
}

void Connection::CommitTrans() {
    traced("commit");
    link().commit();
    m_inTransaction = false;
}

void Connection::RollbackTrans() {
    traced("rollback");
    m_inTransaction = false;
    link().rollback();
}

ResultSet Connection::run(const Request& request) {
    traced(request.text);
    return link().run(request);
}

std::vector<Value> Connection::call(const Call& call) {
    std::string marks;
    for (std::size_t i = 0; i < call.outputs.size(); ++i)
        marks += i == 0 ? "?" : ",?";
    traced("{call " + call.procedure + "(" + marks + ")}");
    return link().call(call);
}

Link& Connection::link() const {
    if (!m_link)
        throw Error("The connection to the hospital's database is not open.", "Connection", 0, "08003");
    return *m_link;
}

void Connection::traced(const std::string& line) const {
    if (m_trace)
        m_trace(line);
}

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    m_connection.BeginTrans();
}

Transaction::~Transaction() {
    if (!m_connection.inTransaction())
        return;
    try {
        m_connection.RollbackTrans();
    } catch (const Error&) { // see the class's comment
    }
}

void Transaction::commit() {
    m_connection.CommitTrans();
}

} // namespace opd::ado
