#pragma once

#include "adapters/odbc/driver_string.h"

#include <memory>

namespace opd::adapters::odbc {

/// Logs on to the server, and tells `onWait` meanwhile. Throws ado::Error.
std::unique_ptr<ado::Link> openLink(const ado::ConnectionString& settings, const Options& options,
                                    const ado::Link::OnWait& onWait);

} // namespace opd::adapters::odbc
