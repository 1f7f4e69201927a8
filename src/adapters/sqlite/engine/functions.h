#pragma once

#include "adapters/sqlite/engine/engine.h"
#include "base/clock/clock.h"

namespace opd::adapters::sqlite {

/// Registers the collations and the functions that the schema and the procedures use on a connection, which the clock
/// outlives.
void registerFunctions(sqlite3* handle, const Clock& clock);

} // namespace opd::adapters::sqlite
