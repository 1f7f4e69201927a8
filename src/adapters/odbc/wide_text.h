#pragma once

#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>

namespace opd::adapters::odbc {

/// Text as the driver manager's wide functions take it: UTF-16.
using WideText = std::basic_string<SQLWCHAR>;

/// Characters that are none become U+FFFD.
WideText toWide(std::string_view utf8);
std::string fromWide(const WideText& utf16);

} // namespace opd::adapters::odbc
