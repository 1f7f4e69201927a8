#pragma once

#include "adapters/sqlite/engine/database.h"

#include <map>
#include <string>
#include <vector>

namespace opd::adapters::sqlite {

/// A column as the schema declares it.
struct Column {
    std::string name;
    bool isDate = false;     ///< DATE
    bool isDateTime = false; ///< DATETIME
    bool isBit = false;      ///< BIT
    bool isName = false;     ///< compares by the collation OPD
};

/// A table of the file; columns by their upper-case names.
struct Table {
    std::string name;
    std::map<std::string, Column> columns;
    std::string key; ///< the column by which its rows lie in the file; empty where they lie by a number of their own
    std::vector<std::string> orders; ///< the first column of each index over all its rows

    /// Throws ado::Error for a column that it does not have.
    const Column& column(const std::string& name) const;

    /// True when the engine reads the rows in the order of the column without putting them in order.
    bool liesInOrderOf(const Column& column) const;
};

/// The tables of a database file, found by the server's names.
class Catalog {
  public:
    explicit Catalog(const Database& database) : m_database(database) {}

    /// The table of `database..table`, in any letter case. Throws ado::Error when there is none.
    const Table& table(const std::string& databaseName, const std::string& tableName);

  private:
    std::vector<std::string> ordersOf(const std::string& table) const;

    const Database& m_database;
    std::map<std::string, Table> m_tables; ///< those asked for before, by upper-case name
};

/// The text as the column takes it: a date in canonical form for a date column, "0" or "1" for a flag, anything else as
/// it is. Throws ado::Error for a text that the column cannot hold.
Argument valueFor(const Column& column, std::string_view text);

/// The canonical form of a date text, with its time of day unless `dateOnly`. Throws ado::Error when it is no date.
std::string canonicalDate(std::string_view text, bool dateOnly);

} // namespace opd::adapters::sqlite
