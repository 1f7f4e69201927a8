#pragma once

#include "ado/recordset.h"
#include "ado/statement.h"
#include "session/session.h"

namespace opd::data {

/// Opens a recordset with a client-side cursor on the shared connection. Throws ado::Error.
ado::Recordset openClient(const Session& session, const ado::Statement& statement,
                          ado::CursorType cursor = ado::CursorType::Dynamic,
                          ado::LockType lock = ado::LockType::ReadOnly);

/// Opens a recordset without naming a cursor location. Throws ado::Error.
ado::Recordset openPlain(const Session& session, const ado::Statement& statement,
                         ado::CursorType cursor = ado::CursorType::Dynamic,
                         ado::LockType lock = ado::LockType::ReadOnly);

/// Runs a statement through the connection itself and returns its rows, if any. Throws ado::Error.
ado::Recordset execute(const Session& session, const ado::Statement& statement);

/// The same for a statement that only reads: the clerk may give it up when it takes long.
ado::Recordset search(const Session& session, const ado::Statement& statement);

/// A column of the current row as text, null as an empty one.
std::string textOf(const ado::Recordset& rows, std::string_view column);

/// True when the rows have a column of this name, in any letter case.
bool hasColumn(const ado::Recordset& rows, std::string_view column);

/// Shows a failure to the clerk: rolls back an open transaction, restores the pointer, and shows the failure's own
/// message. What every window does with a failure that none of its handlers expected.
void reportFailure(const Session& session, const std::exception& failure);

} // namespace opd::data
