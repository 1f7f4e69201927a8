#include "session/session.h"

#include "ado/error.h"

namespace opd {

ado::Connection& Session::connection() const {
    if (!globals.gConnection)
        throw ado::Error("The host has not handed over a database connection.", "InitDLL", 0, "08003");
    return *globals.gConnection;
}

} // namespace opd
