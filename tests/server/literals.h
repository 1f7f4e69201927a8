#pragma once

#include "ado/provider.h"
#include "server/types.h"

#include <optional>

namespace opd::testserver {

/// A row without a table: one value of any type a column.
struct LiteralRow {
    ado::ResultSet row;
    std::vector<Type> types;
};

/// Reads "SELECT value [[AS] name], ...", where a value is 'text', N'text', a whole number, NULL, or CAST(one of these
/// AS a type). Nothing when the statement is something else, such as a select from a table.
std::optional<LiteralRow> literalRow(const std::string& statement);

} // namespace opd::testserver
