#pragma once

#include "adapters/sqlite/engine/database.h"
#include "adapters/sqlite/procedures.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace opd::adapters::sqlite {

/// The statements of a text or a procedure, one after the other.
struct Prepared {
    std::vector<Query> queries;
    std::size_t writing = 0;              ///< how many of them write
    std::vector<std::vector<int>> places; ///< of a procedure's queries: where each parameter is bound, 0 for nowhere
};

/// The statements of one database that were prepared once and are used again. They hold no rows and no transaction
/// between two uses, and the library prepares them anew when a table has changed.
class PreparedStatements {
  public:
    explicit PreparedStatements(const Database& database) : m_database(database) {}

    /// The statements of a text. Throws ado::Error.
    Prepared of(const std::string& text) const;

    /// The statements of a procedure. Throws ado::Error.
    Prepared& of(const Procedure& procedure);

    /// Runs a single statement that takes no values and answers no rows. Throws ado::Error.
    void run(const char* statement);

  private:
    const Database& m_database;
    std::unordered_map<const Procedure*, Prepared> m_procedures;
    std::unordered_map<const char*, Query> m_words;
};

/// Statements in use; whatever happens, they are given back without a hold on the database.
class LentStatements {
  public:
    explicit LentStatements(Prepared& prepared) : m_prepared(prepared) {}
    ~LentStatements() {
        for (Query& query : m_prepared.queries)
            query.reset();
    }
    LentStatements(const LentStatements&) = delete;
    LentStatements& operator=(const LentStatements&) = delete;

    Prepared& operator*() const { return m_prepared; }
    Prepared* operator->() const { return &m_prepared; }

  private:
    Prepared& m_prepared;
};

} // namespace opd::adapters::sqlite
