#include "ado/recordset.h"

#include "ado/error.h"

namespace opd::ado {

void Recordset::Open(const Statement& source, Connection& connection, CursorType cursorType, LockType lockType) {
    m_rows = connection.run({.text = source.str(),
                             .effect = Effect::Reads,
                             .throughRecordset = true,
                             .cursorLocation = CursorLocation,
                             .cursorType = cursorType,
                             .lockType = lockType});
    m_current = 0;
}

long Recordset::RecordCount() const {
    return all().rowCountKnown ? static_cast<long>(all().rows.size()) : -1;
}

bool Recordset::BOF() const {
    return all().rows.empty();
}

bool Recordset::EndOfFile() const {
    return m_current >= all().rows.size();
}

const Value& Recordset::Fields(std::string_view name) const {
    if (EndOfFile())
        throw Error("The result has no current row to read \"" + std::string{name} + "\" from.", "Recordset");
    if (const std::optional<std::size_t> place = m_rows->columns.find(name))
        return m_rows->rows[m_current][*place];
    throw Error("The result has no column \"" + std::string{name} + "\".", "Recordset", 3265);
}

const ResultSet& Recordset::all() const {
    if (!m_rows)
        throw Error("The recordset is closed.", "Recordset", 3704);
    return *m_rows;
}

ResultSet Recordset::taken() {
    static_cast<void>(all()); // throws when there are none
    ResultSet rows = std::move(*m_rows);
    Close();
    return rows;
}

} // namespace opd::ado
