#pragma once

#include "ado/error.h"

#include <sqlite3.h>
#include <string>

namespace opd::adapters::sqlite {

/// An error as the hospital's server would word it.
ado::Error serverError(const std::string& message, long number, const std::string& sqlState);

/// True when the last call failed because there is no room on the disk of the file that it worked with.
bool isFull(sqlite3* handle);

/// The error of a failed call, in words for the clerk.
ado::Error errorOf(sqlite3* handle);

} // namespace opd::adapters::sqlite
