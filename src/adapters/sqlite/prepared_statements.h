#pragma once

#include "adapters/sqlite/database.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace opd::adapters::sqlite {

/// The statements of one database that were prepared once and are used again. They hold no rows and no transaction
/// between two uses, and the library prepares them anew when a table has changed.
class PreparedStatements {
  public:
    explicit PreparedStatements(const Database& database) : m_database(database) {}

    /// The statements of the text, one after the other; good until the next text is asked for. Throws ado::Error.
    std::vector<Query>& of(const std::string& text);

  private:
    const Database& m_database;
    std::unordered_map<std::string, std::vector<Query>> m_statements;
};

/// Statements in use; whatever happens, they are given back without a hold on the database.
class LentStatements {
  public:
    explicit LentStatements(std::vector<Query>& queries) : m_queries(queries) {}
    ~LentStatements() {
        for (Query& query : m_queries)
            query.reset();
    }
    LentStatements(const LentStatements&) = delete;
    LentStatements& operator=(const LentStatements&) = delete;

    std::vector<Query>& queries() const { return m_queries; }

  private:
    std::vector<Query>& m_queries;
};

} // namespace opd::adapters::sqlite
