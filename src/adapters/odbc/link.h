#pragma once

#include "adapters/odbc/driver_string.h"

#include <memory>

namespace opd::adapters::odbc {

/// Logs on to the server. Throws ado::Error.
std::unique_ptr<ado::Link> openLink(const ado::ConnectionString& settings, const Options& options);

} // namespace opd::adapters::odbc
