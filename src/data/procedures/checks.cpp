#include "data/procedures/checks.h"

#include "data/rows.h"
#include "data/statements.h"

namespace opd::data {

bool CheckCompanyAccount(const Session& session, const std::string& code) {
    return openClient(session, statements::companyAccount(code)).RecordCount() > 0;
}

bool CheckPatientMasterAccount(const Session& session, const std::string& hospNum) {
    return openClient(session, statements::masterAccount(hospNum), ado::CursorType::Dynamic, ado::LockType::Optimistic)
               .RecordCount() > 0;
}

bool FindHospNumByNameBirthDate(const Session& session, const std::string& lastName, const std::string& birthDate) {
    return openClient(session, statements::namesakes(lastName, birthDate), ado::CursorType::Dynamic,
                      ado::LockType::Optimistic)
               .RecordCount() > 0;
}

bool IsVisitBilled(const Session& session, const std::string& opdNumber) {
    const ado::Recordset visit = openClient(session, statements::billingDate(opdNumber));
    return !visit.EndOfFile() && !visit.Fields("BillingDate").isNull();
}

std::string GetOpenVisit(const Session& session) {
    const ado::Recordset visit = openClient(session, statements::openVisits(session.globals.gSelectedHospNum));
    return visit.EndOfFile() ? std::string{} : textOf(visit, "IdNum");
}

} // namespace opd::data
