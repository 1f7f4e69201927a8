#include "data/rows.h"

#include "ado/error.h"

namespace opd::data {

namespace {

ado::Recordset open(const Session& session, const ado::Statement& statement, ado::CursorLocation location,
                    ado::CursorType cursor, ado::LockType lock) {
    ado::Recordset rows;
    rows.CursorLocation = location;
    rows.Open(statement, session.connection(), cursor, lock);
    return rows;
}

} // namespace

ado::Recordset openClient(const Session& session, const ado::Statement& statement, ado::CursorType cursor,
                          ado::LockType lock) {
    return open(session, statement, ado::CursorLocation::Client, cursor, lock);
}

ado::Recordset openPlain(const Session& session, const ado::Statement& statement, ado::CursorType cursor,
                         ado::LockType lock) {
    return open(session, statement, ado::CursorLocation::Unspecified, cursor, lock);
}

ado::Recordset execute(const Session& session, const ado::Statement& statement) {
    return session.connection().Execute(statement);
}

ado::Recordset search(const Session& session, const ado::Statement& statement) {
    return session.connection().Execute(statement, ado::Effect::Reads);
}

std::string textOf(const ado::Recordset& rows, std::string_view column) {
    return rows.Fields(column).asText();
}

bool hasColumn(const ado::Recordset& rows, std::string_view column) {
    return rows.all().columns.find(column).has_value();
}

void reportFailure(const Session& session, const std::exception& failure) {
    if (session.globals.gConnection && session.globals.gConnection->inTransaction()) {
        try {
            session.globals.gConnection->RollbackTrans();
        } catch (const std::exception&) { // a connection that is lost has rolled back by itself
        }
    }
    session.desktop.setBusy(false);
    const auto* error = dynamic_cast<const ado::Error*>(&failure);
    const bool wasAskedFor = error != nullptr && error->sqlState() == "HY008";
    session.desktop.ask({.text = failure.what(), .icon = wasAskedFor ? ui::Icon::Information : ui::Icon::Critical});
}

} // namespace opd::data
