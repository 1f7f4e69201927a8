#pragma once

#include "ado/connection.h"

#include <optional>

namespace opd::ado {

/// The rows that a statement answered, read from the first to the last.
class Recordset {
  public:
    Recordset() = default;
    explicit Recordset(ResultSet rows) : m_rows(std::move(rows)) {}

    ado::CursorLocation CursorLocation = ado::CursorLocation::Unspecified;

    /// Runs the statement, which reads and changes nothing, on the connection and stands on the first row. Throws
    /// Error.
    void Open(const Statement& source, Connection& connection, CursorType cursorType = CursorType::Unspecified,
              LockType lockType = LockType::Unspecified);

    void Close() { m_rows.reset(); }

    /// 0 closed, 1 open.
    int State() const { return m_rows ? 1 : 0; }

    /// The number of rows, or -1 when the provider does not know it.
    long RecordCount() const;

    bool BOF() const;
    bool EndOfFile() const; ///< stands behind the last row
    void MoveNext() { ++m_current; }

    /// The value of a column of the current row, the column named in any letter case. Throws Error when there is no
    /// such column or no current row.
    const Value& Fields(std::string_view name) const;

    /// All rows with their column names, for showing them whole.
    const ResultSet& all() const;

    /// The same rows, taken away: the recordset is closed.
    ResultSet taken();

  private:
    std::optional<ResultSet> m_rows;
    std::size_t m_current = 0;
};

} // namespace opd::ado
