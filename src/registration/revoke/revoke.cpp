#include "registration/revoke/revoke.h"

#include "ado/error.h"
#include "base/text/text.h"
#include "data/rows.h"
#include "registration/statements/changes.h"
#include "registration/statements/queries.h"
#include "ui/window.h"

namespace opd::registration {

using ado::Statement;

/// What the status becomes, how the log calls that, and what is said when it fails.
struct Revoking::Change {
    const char* action;
    const char* statusReached;
    const char* failureText;
};

Revoking::Revoking(Session& session, Fields& fields) : m_session(session), m_header(fields.header) {
    fields.buttons.cmdRevoke.onClick = [this] { revoke(); };
    fields.buttons.cmdUnRevoke.onClick = [this] { restore(); };
}

std::string Revoking::shownVisit() const {
    return text::upper(m_header.txtOPDNum.text());
}

void Revoking::notify(const std::string& text) {
    m_session.desktop.ask({.text = text, .caption = "Notification"});
}

bool Revoking::hasPendingBill() const {
    const ado::Recordset bill = data::openPlain(m_session, statements::hospitalBill(m_header.txtOPDNum.text()));
    return !bill.EndOfFile() && bill.Fields("HospitalBill").asNumber() != 0;
}

/// The rule goes by the workstation's calendar.
bool Revoking::isOfToday() const {
    return m_header.dtpAdmDate.value().date() == m_session.clock.now().date();
}

bool Revoking::confirmed(const char* question) {
    return m_session.desktop.ask({.text = question,
                                  .caption = "Notification",
                                  .buttons = ui::Buttons::YesNo,
                                  .icon = ui::Icon::Critical,
                                  .defaultAnswer = ui::Answer::No}) == ui::Answer::Yes;
}

std::string Revoking::outcome(const Change& change, bool statusStands, bool isDoubtful) {
    const std::string reached = change.statusReached;
    if (statusStands)
        return "The visit is " + reached + " by now; the log of it " + (isDoubtful ? "may be" : "is") + " missing.";
    return isDoubtful ? "It is not certain whether the visit is " + reached + " by now: open it again to see."
                      : std::string{"Nothing was changed."};
}

/// Writes status and log, each by itself, and closes the form; a failure is told, with what is true by then, and keeps
/// it open.
void Revoking::write(const Statement& status, const Change& change) {
    bool statusStands = false;
    try {
        const ui::BusyPointer busy(m_session.desktop);
        data::execute(m_session, status);
        statusStands = true;
        const ado::LongPatience patience(m_session.connection());
        data::execute(m_session, statements::logRevoke(shownVisit(), m_session.globals.gUserID, change.action));
    } catch (const ado::Error& failure) {
        notify(std::string{change.failureText} + "\r\n\r\n" + failure.what() + "\r\n\r\n" +
               outcome(change, statusStands, failure.leavesDoubt()));
        return;
    }
    m_header.txtOPDNum.window().unload();
}

void Revoking::revoke() {
    if (hasPendingBill())
        return notify("You are not allowed to revoke admissions with pending hospital bills.");
    if (!isOfToday())
        return notify("You can only revoke admissions made today.");
    if (confirmed("Are you sure you want this patient's admission to be revoked."))
        write(statements::revokeVisit(shownVisit()),
              {"Revoked", "revoked",
               "An error has occured while revoking this patient's admission. You may click on REVOKE to try again."});
}

void Revoking::restore() {
    if (!isOfToday())
        return notify("You can only un-revoke admissions made today.");
    if (confirmed("Are you sure you want this patient's admission to be Restored."))
        write(statements::restoreVisit(shownVisit()),
              {"Unrevoked", "restored",
               "An error has occured while un-revoking this patient's admission. You may click on UNREVOKE to try "
               "again."});
}

} // namespace opd::registration
