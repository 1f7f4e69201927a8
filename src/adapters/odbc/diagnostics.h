#pragma once

#include "ado/error.h"

#include <sql.h>

namespace opd::adapters::odbc {

/// The source of every error of this provider.
inline constexpr const char* errorSource = "SQL Server";

/// The failure of the last call on the handle: the server's own words where it spoke, else the driver's, without the
/// names that drivers put in front of them. Notes and warnings are no failure.
ado::Error errorOf(SQLSMALLINT kind, SQLHANDLE handle);

} // namespace opd::adapters::odbc
