#pragma once

#include "registration/fields/fields.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// "Revoke" and "Unrevoke": each changes the status of the shown visit on its own day, writes the log, and closes the
/// form. A visit with a hospital bill cannot be revoked.
class Revoking {
  public:
    Revoking(Session& session, Fields& fields);
    Revoking(const Revoking&) = delete;
    Revoking& operator=(const Revoking&) = delete;

  private:
    struct Change;

    void revoke();
    void restore();
    static std::string outcome(const Change& change, bool statusStands, bool isDoubtful);
    void write(const ado::Statement& status, const Change& change);
    void notify(const std::string& text);
    bool hasPendingBill() const;
    bool isOfToday() const;
    bool confirmed(const char* question);
    std::string shownVisit() const;

    Session& m_session;
    HeaderFields& m_header;
};

} // namespace opd::registration
