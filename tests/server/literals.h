#pragma once

#include "ado/provider.h"
#include "server/types.h"

#include <functional>
#include <optional>

namespace opd::testserver {

/// A row without a table: one value of any type a column.
struct LiteralRow {
    ado::ResultSet row;
    std::vector<Type> types;
};

/// Answers the name of a value of the session, "@@TRANCOUNT" or "DB_NAME"; nothing for a name that is none.
using SessionValue = std::function<std::optional<ado::Value>(const std::string& name)>;

/// Reads "SELECT value [[AS] name], ...", where a value is 'text', N'text', a number, NULL, a value of the session, or
/// CAST(one of these AS a type). Nothing when the statement is something else, such as a select from a table.
std::optional<LiteralRow> literalRow(const std::string& statement, Version version, const SessionValue& sessionValue);

} // namespace opd::testserver
