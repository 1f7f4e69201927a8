#pragma once

#include "adapters/sqlite/engine/database.h"
#include "demonstration/rows.h"

#include <map>

namespace opd::adapters::sqlite {

/// Inserts generated rows, keeping a statement prepared for each table.
class DemonstrationRows final : public demonstration::Rows {
  public:
    explicit DemonstrationRows(Database& database) : m_database(database) {}

    void add(const demonstration::Table& table, std::vector<ado::Value> values) override;
    void setCounter(std::string_view name, std::int64_t last) override;

  private:
    Database& m_database;
    std::map<const demonstration::Table*, Query> m_inserts;
};

} // namespace opd::adapters::sqlite
