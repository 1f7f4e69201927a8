#pragma once

#include "adapters/sqlite/catalog.h"
#include "adapters/sqlite/tokens.h"

#include <string>
#include <variant>
#include <vector>

namespace opd::adapters::sqlite {

/// What becomes of a value that stands in a statement text.
struct Placeholder {
    enum class Kind {
        AsItIs,    ///< bound
        ForColumn, ///< bound as the column takes it
        Beginning, ///< bound without the "%" at its end
        Written    ///< a part of the translation
    };
    Kind kind = Kind::AsItIs;
    const Column* column = nullptr;
    std::string written = {}; ///< how it stands in the translation
};

/// A statement in the embedded database's own SQL. Those of its values that are bound belong to the "?" in their order.
struct Translation {
    std::string sql;
    std::vector<Placeholder> values;  ///< a line for each value of the text
    std::vector<std::size_t> moments; ///< result columns that are dates although no table declares them
    std::vector<std::size_t> order;   ///< result columns by which the program is to order the rows, see `orderRows`
};

/// A call of a stored procedure; its arguments are the values of the text.
struct ProcedureCall {
    std::string database;
    std::string procedure;
};

/// A value of a text as it is bound in its place. Throws ado::Error for one that the column cannot hold.
Argument argumentFor(const Placeholder& place, std::string_view value);

/// Reads a statement text of the desk: a select of one table or of some that are joined, an update or delete of one, in
/// the shapes that the desk sends, or a call of a procedure, and nothing behind it. Everything else is refused with the
/// error that a server would raise.
std::variant<Translation, ProcedureCall> parse(std::string_view statement, Catalog& catalog);

} // namespace opd::adapters::sqlite
