#pragma once

#include "adapters/sqlite/database.h"

#include <functional>

namespace opd::adapters::sqlite {

/// Inserts synthetic patients with their visits, the demonstration patients first, and sets the counters of numbers
/// behind them. Throws ado::Error.
void insertPatients(Database& database, int count, unsigned seed,
                    const std::function<void(int done, int total)>& progress);

} // namespace opd::adapters::sqlite
