#include "data/statements.h"

#include "session/feature_flags.h"

namespace opd::data::statements {

using ado::Statement;

Statement featureFlags() {
#define OPD_FLAG_TERM(member, term) ", " term
    return "Select top 1 isnull(ClientName,'') as ClientName" OPD_FEATURE_FLAGS(
        OPD_FLAG_TERM) " from Patient_Data..tbHospitalInfo";
#undef OPD_FLAG_TERM
}

Statement hospitalInfo() {
    return "select * from Patient_Data..tbHospitalInfo";
}

Statement serverDate() {
    return "select GETDATE() AS Tdate";
}

Statement serverDateOfHospital() {
    return "Select GetDate() As CurDate from patient_Data..tbHospitalInfo";
}

Statement companyAccount(const std::string& code) {
    return Statement("Patient_Data..SP_AOPD_CheckCompanyAccount '").value(code).text("'");
}

Statement masterAccount(const std::string& hospNum) {
    return Statement("Patient_Data..sp_AOPD_CheckPatientsMasterAccount '").value(hospNum).text("'");
}

Statement namesakes(const std::string& lastName, const std::string& birthDate) {
    return Statement("Select hospnum from Patient_Data..tbMaster Where Lastname like '")
        .value(lastName)
        .text("%' and BirthDate = '")
        .value(birthDate)
        .text("'");
}

Statement billingDate(const std::string& opdNumber) {
    return Statement("Select BillingDate from Patient_Data..tbOutPatient where IDNum = '").value(opdNumber).text("'");
}

Statement openVisits(const std::string& hospNum) {
    return Statement("Select IDNum from Patient_Data..tbOutPatient where Hospnum = '")
        .value(hospNum)
        .text("' and BillingDate is null and dcrDate is null and OPDStatus <> 'R' order by admdate desc");
}

} // namespace opd::data::statements
