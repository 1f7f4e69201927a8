#pragma once

#include "adapters/sqlite/database.h"

#include <functional>

namespace opd::adapters::sqlite {

struct Population {
    int patients;
    unsigned seed;
    DateTime today; ///< the day that ages and visits are reckoned from
};

/// Inserts synthetic patients with their visits, the demonstration patients first, and sets the counters of numbers
/// behind them. Throws ado::Error.
void insertPatients(Database& database, const Population& population,
                    const std::function<void(int done, int total)>& progress);

} // namespace opd::adapters::sqlite
