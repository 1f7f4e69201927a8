#pragma once

#include "adapters/sqlite/catalog.h"
#include "adapters/sqlite/tokens.h"

#include <string>
#include <variant>
#include <vector>

namespace opd::adapters::sqlite {

/// A statement in the embedded database's own SQL, its values bound to the "?" in their order.
struct Translation {
    std::string sql;
    std::vector<ado::Value> values;
    std::vector<std::size_t> moments; ///< result columns that are dates although no table declares them
    std::vector<std::size_t> order;   ///< result columns by which the program is to order the rows, see `orderRows`
};

/// A call of a stored procedure.
struct ProcedureCall {
    std::string database;
    std::string procedure;
    std::vector<std::string> arguments;
};

/// Reads a statement text of the desk: a select of one table or of some that are joined, an update or delete of one, in
/// the shapes that the desk sends, or a call of a procedure, and nothing behind it. Everything else is refused with the
/// error that a server would raise.
std::variant<Translation, ProcedureCall> parse(std::string_view statement, Catalog& catalog);

} // namespace opd::adapters::sqlite
