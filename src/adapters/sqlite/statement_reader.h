#pragma once

#include "adapters/sqlite/parser.h"
#include "adapters/sqlite/prepared_statements.h"
#include "adapters/sqlite/statement_shape.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace opd::adapters::sqlite {

/// A statement text that was read: what is run for it, and with which values.
struct ReadStatement {
    const Procedure* procedure = nullptr; ///< where it calls one
    Prepared* prepared = nullptr;
    const Translation* translation = nullptr; ///< otherwise
    std::vector<Argument> arguments;
};

/// Reads the statement texts of one connection. A text that differs from an earlier one in nothing but its values is
/// not taken apart again.
class StatementReader {
  public:
    StatementReader(const Database& database, PreparedStatements& prepared)
        : m_prepared(prepared), m_catalog(database) {}

    /// Reads a text, which stays where it is while the answer is used; good until the next one is read. Throws
    /// ado::Error.
    const ReadStatement& read(std::string_view text);

  private:
    struct Known {
        Translation translation; ///< of what is no call
        Prepared ofTranslation;
        const Procedure* procedure = nullptr;
        Prepared* ofProcedure = nullptr;
    };

    Known& known(std::string_view text);
    Known taken(std::string_view text);
    bool standsFor(const Known& known) const;
    void takeArguments(const Known& known);

    PreparedStatements& m_prepared;
    Catalog m_catalog;
    StatementShape m_shape;
    std::unordered_map<std::string, Known> m_known; ///< by the keys of their shapes
    ReadStatement m_read;
};

} // namespace opd::adapters::sqlite
