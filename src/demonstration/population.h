#pragma once

#include "base/clock/date_time.h"
#include "demonstration/rows.h"

#include <functional>

namespace opd::demonstration {

struct Population {
    int patients = 0;
    unsigned seed = 1;
    DateTime today; ///< the day that ages and visits are reckoned from
};

/// Is told from time to time how many patients are done.
using Progress = std::function<void(int done, int total)>;

/// Adds synthetic patients with their visits, the demonstration patients first, and sets the counters of numbers behind
/// them. Throws what the rows throw.
void generatePatients(Rows& rows, const Population& population, const Progress& progress);

} // namespace opd::demonstration
