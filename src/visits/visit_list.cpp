#include "visits/visit_list.h"

#include "base/clock/date_text.h"
#include "base/text/folding.h"
#include "base/text/text.h"
#include "data/rows.h"

namespace opd::visits {

namespace {

std::string nameOf(const std::string& last, const std::string& others) {
    const std::string behind = text::trimmed(others);
    return behind.empty() ? last : last + ", " + behind;
}

/// What stands highest of all that may have happened to it. Only an open one is found by the search.
std::string stateOf(const ado::Recordset& row) {
    if (text::equalsIgnoringCase(text::trimmed(data::textOf(row, "OPDStatus")), "R"))
        return "revoked";
    if (!row.Fields("BillingDate").isNull())
        return "billed";
    if (!row.Fields("dcrDate").isNull())
        return "discharged";
    return row.Fields("ConsultationDate").isNull() ? "open" : "consultation ended";
}

Visit visitOf(const ado::Recordset& row) {
    const auto text = [&](const char* column) { return text::trimmed(data::textOf(row, column)); };
    return {.time = timeText(row.Fields("AdmDate").asDate()),
            .opdNumber = text("IDNum"),
            .patient = nameOf(text("LastName"), text("FirstName") + " " + text("MiddleName")),
            .hospNum = text("HospNum"),
            .service = text("Service"),
            .doctor = nameOf(text("DoctorLastName"), text("DoctorFirstName")),
            .user = text("UserID"),
            .state = stateOf(row)};
}

} // namespace

std::vector<std::string> cellsOf(const Visit& visit) {
    return {visit.time,    visit.opdNumber, visit.patient, visit.hospNum,
            visit.service, visit.doctor,    visit.user,    visit.state};
}

void VisitList::read(const ado::Recordset& rows) {
    std::vector<Visit> visits;
    std::vector<text::SearchedRow> searched;
    for (ado::Recordset row = rows; !row.EndOfFile(); row.MoveNext()) {
        visits.push_back(visitOf(row));
        text::SearchedRow& cells = searched.emplace_back(1, 2);
        for (const std::string& cell : cellsOf(visits.back()))
            cells.add(cell);
    }
    m_visits = std::move(visits);
    m_searched = std::move(searched);
}

std::vector<const Visit*> VisitList::holding(const std::string& text, const std::string& user) const {
    const std::string wanted = text::trimmed(text::folded(text));
    std::vector<const Visit*> found;
    for (std::size_t i = 0; i < m_visits.size(); ++i)
        if (m_searched[i].holds(wanted) && (user.empty() || text::equalsIgnoringCase(m_visits[i].user, user)))
            found.push_back(&m_visits[i]);
    return found;
}

} // namespace opd::visits
