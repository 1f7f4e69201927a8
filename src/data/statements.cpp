#include "data/statements.h"

namespace opd::data::statements {

using ado::Statement;

Statement featureFlags() {
    return Statement(
        "Select top 1 isnull(ClientName,'') as ClientName, isnull(IsHMORate,0) isHMORate, isnull(IsOPDstatRate,0) "
        "IsOPDstatRate, "
        "isnull(IsAllowOPDShowLabSpecimen,0) IsAllowOPDShowLabSpecimen, isnull(IsAllowOPDChargeChangePrice,0) "
        "IsAllowOPDChargeChangePrice, "
        "isnull(isAllowOPDRegisterInpatient,0) isAllowOPDRegisterInpatient, isnull(IsAllowOPDCheckLabSection,0) "
        "IsAllowOPDCheckLabSection, "
        "isnull(IsAllowOPDAssessmentRateG,0) IsAllowOPDAssessmentRateG, isnull(isAllowCorvane,0) isAllowCorvane, "
        "isnull(isAllowOPDSearchBarangay,0) isAllowOPDSearchBarangay, Isnull(isAllowOPDSearchCardNumber,0) "
        "isAllowOPDSearchCardNumber, "
        "isnull(IsAllowOPDMABRate,0) IsAllowOPDMABRate, isnull(IsAllowOPDUpdateHMOLOA,0) IsAllowOPDUpdateHMOLOA, "
        "IsNull(IsAllowOPDExportReport,0) IsAllowOPDExportReport, IsNull(IsAllowOPDSearchDocBySched,0) "
        "IsAllowOPDSearchDocBySched, "
        "IsNull(IsAllowOPDPatientClass,0) IsAllowOPDPatientClass, IsNull(IsAllowOPDShowDiscount,0) "
        "IsAllowOPDShowDiscount, isnull(isAllowOPDPayCode,0) isAllowOPDPayCode, "
        "isnull(isAllowMultipleRequest,0) isAllowMultipleRequest, isnull(allowEndConsultation,0) "
        "allowEndConsultation, "
        "isnull(isAllowOPFileNumbering,0) isAllowOPFileNumbering, isnull(isAllowCreateNewIDnum,0)"
        "isAllowCreateNewIDnum, isnull(isAllowSpecializedCompanyRate,0)isAllowSpecializedCompanyRate from "
        "Patient_Data..tbHospitalInfo");
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
