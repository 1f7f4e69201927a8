#pragma once

#include "adapters/sqlite/parser.h"

#include <string>
#include <vector>

namespace opd::adapters::sqlite {

/// A stored procedure: a file of `database/embedded/procedures/`, whose first lines declare its
/// parameters and, where it does not belong to Patient_Data, its database. A long answer may leave its order to the
/// program (`orderRows`): the columns by which it is to be ordered stand in a line of their own then.
struct Procedure {
    enum class Kind { Text, Number, Bit, Date };
    struct Parameter {
        std::string name;
        Kind kind = Kind::Text;
        bool optional = false; ///< an empty text is null
    };

    std::string name; ///< "database..name"
    std::vector<Parameter> parameters;
    std::string output;             ///< the name of what it answers to a typed call; empty for most
    std::vector<std::string> order; ///< names of columns of its answer; empty where the statement orders its rows
    std::string body;
};

/// Every procedure, by database and name, and one with several numbers of arguments once for each of them.
std::vector<const Procedure*> allProcedures();

/// The procedure of a database and a name, in any letter case, that takes so many arguments. Throws ado::Error when
/// there is none.
const Procedure& findProcedure(const std::string& database, const std::string& name, std::size_t arguments);

/// The argument as the parameter takes it. Throws ado::Error when it cannot be converted.
Argument argumentFor(const Procedure::Parameter& parameter, std::string_view argument);

/// The text of the schema that a new database begins with.
const char* schemaText();

} // namespace opd::adapters::sqlite
