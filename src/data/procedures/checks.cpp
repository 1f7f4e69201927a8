#include "data/procedures/checks.h"

#include "data/rows.h"

namespace opd::data {

bool CheckCompanyAccount(const Session& session, const std::string& code) {
    return openClient(session, Statement("Patient_Data..SP_AOPD_CheckCompanyAccount '").value(code).text("'"))
               .RecordCount() > 0;
}

bool CheckPatientMasterAccount(const Session& session, const std::string& hospNum) {
    return openClient(session, Statement("Patient_Data..sp_AOPD_CheckPatientsMasterAccount '").value(hospNum).text("'"),
                      ado::CursorType::Dynamic, ado::LockType::Optimistic)
               .RecordCount() > 0;
}

bool FindHospNumByNameBirthDate(const Session& session, const std::string& lastName, const std::string& birthDate) {
    return openClient(session,
                      Statement("Select hospnum from Patient_Data..tbMaster Where Lastname like '")
                          .value(lastName)
                          .text("%' and BirthDate = '")
                          .value(birthDate)
                          .text("'"),
                      ado::CursorType::Dynamic, ado::LockType::Optimistic)
               .RecordCount() > 0;
}

bool IsVisitBilled(const Session& session, const std::string& opdNumber) {
    const ado::Recordset visit = openClient(
        session,
        Statement("Select BillingDate from Patient_Data..tbOutPatient where IDNum = '").value(opdNumber).text("'"));
    return !visit.EndOfFile() && !visit.Fields("BillingDate").isNull();
}

std::string GetOpenVisit(const Session& session) {
    const ado::Recordset visit =
        openClient(session, Statement("Select IDNum from Patient_Data..tbOutPatient where Hospnum = '")
                                .value(session.globals.gSelectedHospNum)
                                .text("' and BillingDate is null and dcrDate is null and OPDStatus <> 'R' order by "
                                      "admdate desc"));
    return visit.EndOfFile() ? std::string{} : textOf(visit, "IdNum");
}

} // namespace opd::data
