#pragma once

#include "ado/provider.h"

#include <string>
#include <vector>

namespace opd::testserver {

/// What `DATABASE..sp_sproc_columns` answers: a row for the return value of each procedure and one for each of its
/// arguments. `lacking` names what a server that was neglected does not have: "procedure", or "procedure@argument".
ado::ResultSet procedureColumns(const std::string& database, const std::vector<std::string>& lacking);

} // namespace opd::testserver
