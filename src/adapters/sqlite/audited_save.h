#pragma once

#include "adapters/sqlite/engine/database.h"

namespace opd::adapters::sqlite {

/// Gives the connection a memory of the save that it is at (`temp.AuditedSave`), from which the procedures that follow
/// one another know whose record, in which visit and by whom it is that they change. It follows the transaction.
void rememberAuditedSave(Database& database);

} // namespace opd::adapters::sqlite
