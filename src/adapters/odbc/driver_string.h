#pragma once

#include "ado/provider.h"

#include <chrono>
#include <string>

namespace opd::adapters::odbc {

/// What the user's settings say about servers.
struct Options {
    std::string driver = "FreeTDS"; ///< a name that the driver manager knows, or a driver's file
    bool encryptionRequired = false;
    std::chrono::seconds loginTimeout{15};
    std::chrono::seconds statementTimeout{30};
};

/// What the driver is told to open the connection. "Data Source" is "NAME", "NAME,PORT" or "NAME\INSTANCE"; without a
/// user the login is that of the workstation's user (Kerberos). Dates in statements are written the American way, so
/// that is the language of the session.
std::string driverString(const ado::ConnectionString& settings, const Options& options);

} // namespace opd::adapters::odbc
