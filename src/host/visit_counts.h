#pragma once

#include "ado/connection.h"
#include "base/clock/date_time.h"

#include <string>
#include <vector>

namespace opd::host {

/// Visits that were registered, counted.
struct VisitCount {
    std::string day; ///< "yyyy-mm-dd"
    std::string user;
    std::string service; ///< its name, or its code where the list does not know it
    long visits = 0;
    long revoked = 0; ///< of these
};

/// A count for each day of the span (both days included), user and first service, in this order. Throws ado::Error.
std::vector<VisitCount> visitCounts(ado::Connection& connection, const DateTime& first, const DateTime& last);

} // namespace opd::host
