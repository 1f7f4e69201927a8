#pragma once

#include "adapters/odbc/driver_string.h"

#include <functional>
#include <memory>

namespace opd::adapters::odbc {

/// The provider of database servers over ODBC: serves data sources that are no folders. `options` is asked at every
/// login.
std::shared_ptr<ado::Provider> makeOdbcProvider(std::function<Options()> options);

} // namespace opd::adapters::odbc
