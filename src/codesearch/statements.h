#pragma once

#include "ado/statement.h"
#include "codesearch/listings.h"

#include <string>

/// Every statement that the code search sends. A section that is not empty restricts the rows of a listing that knows
/// sections.
namespace opd::codesearch {

ado::Statement rowOf(const Listing& listing, const std::string& section, const std::string& code);
ado::Statement rowsOf(const Listing& listing, const std::string& section); ///< sorted by the first shown name

} // namespace opd::codesearch
