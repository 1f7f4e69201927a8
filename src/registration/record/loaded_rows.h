#pragma once

#include "data/rows.h"

#include <deque>

namespace opd::registration {

/// The rows that a form was filled from, with the statement that asked for each.
class LoadedRows {
  public:
    using Open = ado::Recordset (*)(const Session&, const ado::Statement&, ado::CursorType, ado::LockType);

    /// Asks the database and keeps what it answers, at the same place as long as this lives. Throws ado::Error.
    const ado::Recordset& ask(const Session& session, const ado::Statement& statement,
                              ado::LockType lock = ado::LockType::ReadOnly, Open open = &data::openClient);

    /// From now on whatever was asked then is answered as it was then; the database is asked for the rest.
    void answerAs(const LoadedRows& then) { m_then = then.m_asked; }

    /// Asks everything again, in the same order and the same way. False at the first answer that is another one by now.
    /// Throws ado::Error.
    bool stillStand(const Session& session) const;

  private:
    struct Asked {
        ado::Statement statement;
        ado::LockType lock;
        Open open;
        ado::Recordset answer;
    };

    std::deque<Asked> m_asked;
    std::deque<Asked> m_then; ///< whose answers are given in place of the database's
};

} // namespace opd::registration
