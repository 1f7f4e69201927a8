#pragma once

#include "ado/error.h"

#include <sqlite3.h>
#include <string>

namespace opd::adapters::sqlite {

/// An error as the hospital's server would word it.
ado::Error serverError(const std::string& message, long number, const std::string& sqlState);

/// The error of a failed call, in words for the clerk.
ado::Error errorOf(sqlite3* handle);

} // namespace opd::adapters::sqlite
