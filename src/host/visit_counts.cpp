#include "host/visit_counts.h"

#include "ado/recordset.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"

#include <map>
#include <tuple>

namespace opd::host {

namespace {

ado::Statement visitsBetween(const DateTime& first, const DateTime& behindLast) {
    return ado::Statement("Select v.AdmDate, v.UserID, v.ServiceID1, v.OPDStatus, s.Service "
                          "from Patient_Data..tbOutPatient v "
                          "left join Build_File..tbCoService s on s.ServiceID = v.ServiceID1 where v.AdmDate >= '")
        .value(dateText(first))
        .text("' and v.AdmDate < '")
        .value(dateText(behindLast))
        .text("'");
}

} // namespace

std::vector<VisitCount> visitCounts(ado::Connection& connection, const DateTime& first, const DateTime& last) {
    ado::Recordset visits = connection.Execute(visitsBetween(first, addDays(last, 1)), ado::Effect::Reads);
    std::map<std::tuple<std::string, std::string, std::string>, VisitCount> counts;
    for (; !visits.EndOfFile(); visits.MoveNext()) {
        const std::string day = isoDateText(visits.Fields("AdmDate").asDate().date());
        const std::string user = visits.Fields("UserID").asText();
        const bool isKnown = !visits.Fields("Service").isNull();
        const std::string service = visits.Fields(isKnown ? "Service" : "ServiceID1").asText();
        VisitCount& count =
            counts.try_emplace({day, text::upper(user), text::upper(service)}, VisitCount{day, user, service})
                .first->second;
        ++count.visits;
        if (text::trimmed(visits.Fields("OPDStatus").asText()) == "R")
            ++count.revoked;
    }
    std::vector<VisitCount> found;
    found.reserve(counts.size());
    for (auto& [key, count] : counts)
        found.push_back(std::move(count));
    return found;
}

} // namespace opd::host
