#include "registration/record/loaded_rows.h"

#include <algorithm>

namespace opd::registration {

const ado::Recordset& LoadedRows::ask(const Session& session, const ado::Statement& statement, ado::LockType lock,
                                      Open open) {
    const auto then = std::find_if(m_then.begin(), m_then.end(), [&statement](const Asked& asked) {
        return asked.statement.str() == statement.str();
    });
    ado::Recordset rows = then != m_then.end() ? ado::Recordset(then->answer.all())
                                               : open(session, statement, ado::CursorType::Dynamic, lock);
    return m_asked.emplace_back(Asked{statement, lock, open, std::move(rows)}).answer;
}

bool LoadedRows::stillStand(const Session& session) const {
    return std::all_of(m_asked.begin(), m_asked.end(), [&session](const Asked& asked) {
        const ado::Recordset now = asked.open(session, asked.statement, ado::CursorType::Dynamic, asked.lock);
        const ado::ResultSet& before = asked.answer.all();
        return now.all().columns == before.columns && now.all().rows == before.rows;
    });
}

} // namespace opd::registration
