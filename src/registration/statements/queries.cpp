#include "registration/statements/queries.h"

namespace opd::registration::statements {

using ado::Statement;

namespace {

/// A literal that ends in front of a value's quote, and the value.
template <std::size_t Length> Statement about(const char (&literal)[Length], const std::string& value) {
    return Statement(literal).value(value).text("'");
}

} // namespace

Statement payCodes() {
    return "Select PaycodeID, Paycode from Build_File..tbcoPaycode where Status ='A'";
}

Statement payCode(const std::string& id) {
    return about("Select * from Build_File..tbCoPayCode where PayCodeID = '", id);
}

Statement admissionType(const std::string& id) {
    return about("Select * from Build_File..tbCoAdmissionType where AdmissionTypeID = '", id);
}

Statement companyAccount(const std::string& account) {
    return about("Select * From Build_File..tbCoCompany Where AccountNum = '", account);
}

Statement barangay(const std::string& code) {
    return Statement("Build_file..global_SearchBarangay '").value(code).text("','0'");
}

Statement chiefComplaint(const std::string& code) {
    return about("PATIENT_DATA..sp_AOPD_SearchChiefComplaintID '", code);
}

Statement age(const std::string& birthDate) {
    return about("patient_data..sp_AOPD_ComputeAge '", birthDate);
}

Statement master(const std::string& hospNum) {
    return about("Patient_Data..sp_aopd_Load_TbMaster '", hospNum);
}

Statement extendedMaster(const std::string& hospNum) {
    return about("Patient_Data..sp_Adm_LoadPatient '", hospNum);
}

Statement admissionMaster(const std::string& hospNum) {
    return about("Patient_Data..sp_adm_LoadPatient '", hospNum);
}

Statement medicalHistory(const std::string& hospNum) {
    return about("Patient_Data..proc_Adm_Search_tbMasterMedicalHistory '", hospNum);
}

Statement allergies(const std::string& hospNum) {
    return about("Patient_Data..sp_Aopd_LoadAllergies '", hospNum);
}

Statement dependents(const std::string& hospNum) {
    return about("Patient_Data..sp_Adm_LoadDependents '", hospNum);
}

Statement registrationOf(const std::string& hospNum, const std::string& day) {
    return Statement("Patient_Data..sp_aopd_Check_if_admitted_today '").values({hospNum, day}, "', '").text("'");
}

Statement visit(const std::string& opdNumber) {
    return about("Patient_Data..sp_aopd_LoadOutPatient '", opdNumber);
}

Statement programmes(const std::string& opdNumber) {
    return about("Select * from Patient_Data..tbOutPatient where IDNUm = '", opdNumber);
}

Statement outProfile(const std::string& opdNumber) {
    return about("Patient_Data..sp_AOPD_LoadOutProfile '", opdNumber);
}

Statement authorization(const std::string& opdNumber) {
    return about("Select IDNum, IsNull(ApprovalNo,'') ApprovalNo, IsNull(LOAAmount,0) LOAAmount, "
                 "LOADateInformed, IsNull(LOAReceiver,'') LOAReceiver, LOADateReceived, "
                 "IsNull(LOAStatus,'') LOAStatus, IsNull(LOARemarks,'') LOARemarks "
                 "From Patient_Data..tbOpdHMOLOA Where IDNum = '",
                 opdNumber);
}

Statement hospitalBill(const std::string& opdNumber) {
    return about("billing..sp_OPD_ComputeHospitalBill'", opdNumber);
}

Statement similarRecords(const std::string& lastName, const std::string& firstName, long age) {
    return Statement("PATIENT_DATA..sp_AOPD_SearchSimilarRecords '")
        .values({lastName, firstName}, "','")
        .text("',")
        .number(age);
}

Statement namesakes(const std::string& lastName, const std::string& firstName) {
    return Statement("Select HospNum, LastName, FirstName, MiddleName, BirthDate, HouseStreet, Barangay from "
                     "Patient_Data..tbMaster where LastName = '")
        .value(lastName)
        .text("' and FirstName = '")
        .value(firstName)
        .text("' order by BirthDate");
}

Statement confinement(const std::string& hospNum) {
    return about("PATIENT_DATA..sp_AOPD_CheckIfAdmitted '", hospNum);
}

} // namespace opd::registration::statements
