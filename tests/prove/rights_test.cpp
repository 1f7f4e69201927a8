// What the role of the desks may do on a server: all that a desk's statements do, and no more.
#include "contract/hospital.h"
#include "contract/save_statements.h"
#include "prove/proof.h"

#include <gtest/gtest.h>

namespace opd::tests {

namespace {

/// A registration and what follows it.
std::vector<std::string> writesOf(const std::string& patient, const std::string& visit) {
    return {
        callOf("sp_aopd_Update_TbMaster", masterValues(patient, visit)),
        callOf("sp_AOPD_Save_TbMasterAllergies", {patient, "A01", "", "", "", ""}),
        callOf("sp_AOPD_UpdateOPDHistory",
               {patient, visit, "1", "D001", "", "", "", "FINDINGS", "", "", "L01", "", "", ""}),
        callOf("sp_aopd_Update_tbOutpatient", visitValues(patient, visit)),
        callOf("sp_Adm_Update_tbAdmDoctorConsultation", {"D001"}),
        callOf("OPD_Update_AdditionalDr", {visit, "D002", "1"}),
        extendedRecord(patient),
        "Delete Patient_Data..tbMasterDependent where SeqNum = '" + patient + "'",
        "Patient_Data..sp_Adm_SaveDependents  " + patient + ", 'CHILD', '03/05/2015' ",
        callOf("proc_Adm_Update_tbMasterMedicalHistory", {patient}) + ", 1, 0, 0, 0, 0, 0, 0, 0, 'OTHERS'",
        "Update Patient_data..tbOutPatient set isWalkIn = '1', OPDStatus = 'W' where IDnum = '" + visit + "'",
        callOf("OPD_updateConsultationDate", {visit}),
        callOf("sp_AOPD_SaveHMOLOA", {visit, "LOA", "1", "07/01/2026", "", "", "", ""}),
        callOf("sp_AOPD_InsertUpdateOutProfile", {patient, visit, "", "", "", "", "", "", "", "", "06/20/2026", "2"}),
        callOf("OPD_UpdateFileNum", {patient}),
        callOf("sp_AOPD_SaveOPD_UserLog", {visit, "CLERK", "New"}),
        callOf("sp_AOPD_SaveOPDRevokedLog", {visit, "CLERK", "Revoked"})};
}

/// What a desk asks for.
std::vector<std::string> readsOf(const std::string& patient, const std::string& visit) {
    std::vector<std::string> reads{
        "Select GetDate() As CurDate from patient_Data..tbHospitalInfo",
        "Select HospNum from Patient_Data..tbMaster where HospNum = '" + patient + "'",
        "Select IDNum from Patient_Data..tbOutPatient where HospNum = '" + patient + "'",
        "Select * from Patient_Data..tbOpdHMOLOA where IDNum = '" + visit + "'",
        "Select ServiceID, Service from Build_File..tbCoService where ServiceID = '1'",
        "Patient_Data..sp_Adm_MasterPatientSearch 'DELA CRUZ, JUAN','','','M','','1980.03.07',0,0",
        "Patient_Data..sp_Adm_MasterPatientSubSearch 'DELA CRUZ','F','1980.03.07'",
        "Patient_Data..sp_Adm_MasterPatientSearchNew '123456789012','1'",
        "Patient_Data..proc_Bar_Search_Patient '" + patient + "','5'",
        "Patient_Data..sp_AOPD_SearchSimilarRecords 'DELA CRUZ','JUAN',46",
        "BUILD_FILE..sp_Bui_Search_Doctor '2', '','','6'",
        "Build_File..global_SearchDoctor_By_Specialization '62',0",
        "Build_File..global_SearchBarangay 'BAG01','1'",
        "billing..sp_OPD_ComputeHospitalBill'" + visit + "'",
        callOf("sp_aopd_Check_if_admitted_today", {patient, "07/01/2026"}),
        callOf("sp_AOPD_ComputeAge", {"03/07/1980"})};
    for (const char* ofVisit : {"sp_aopd_LoadOutPatient", "sp_AOPD_LoadOutProfile"})
        reads.push_back(callOf(ofVisit, {visit}));
    for (const char* ofPatient :
         {"sp_aopd_Load_TbMaster", "sp_adm_LoadPatient", "proc_Adm_Search_tbMasterMedicalHistory",
          "sp_Aopd_LoadAllergies", "sp_Adm_LoadDependents", "sp_AOPD_CheckIfAdmitted",
          "sp_AOPD_CheckPatientsMasterAccount"})
        reads.push_back(callOf(ofPatient, {patient}));
    for (const char* ofCode : {"sp_Adm_LoadAllergy", "sp_Adm_LoadDoctor", "sp_Adm_LoadService",
                               "sp_AOPD_SearchChiefComplaintID", "sp_AOPD_SearchChiefComplaint",
                               "sp_Adm_SearchAdmissionType", "sp_Adm_SearchBarangay", "SP_AOPD_CheckCompanyAccount"})
        reads.push_back(callOf(ofCode, {"1"}));
    return reads;
}

TEST(Rights, LetTheRoleOfTheDesksDoWhatDesksDoAndNoMore) {
    try {
        prove::theProof().makeDeskLogin();
    } catch (const ado::Error& failure) {
        GTEST_SKIP() << "No login could be made to try the rights of the desks with: " << failure.what();
    }
    const auto desk = prove::theProof().connectAsDesk();
    const std::string patient = newHospNum(*desk), visit = newOpdNumber(*desk) + "B";
    for (const std::string& statement : writesOf(patient, visit))
        EXPECT_EQ(errorOf(*desk, statement), "") << statement;
    for (const std::string& statement : readsOf(patient, visit))
        EXPECT_EQ(errorOf(*desk, statement), "") << statement;

    std::vector<std::string> moved = masterValues(patient, newOpdNumber(*desk) + "B");
    moved[4] = "ANOTHER STREET";
    EXPECT_EQ(errorOf(*desk, callOf("sp_aopd_Update_TbMaster", moved)), "");
    const auto administrator = prove::theProof().connect();
    const std::string noted = "Patient_Data..tbMasterAudit where HospNum = '" + patient + "' and What = '";
    for (const char* what : {"registered", "HouseStreet"})
        EXPECT_EQ(rowsOf(*administrator, "Select What from " + noted + what + "'").size(), 1U) << what;

    EXPECT_NE(errorOf(*desk, "Select OldValue from " + noted + "HouseStreet'"), "") << "it reads the audit";
    EXPECT_NE(errorOf(*desk, "Delete Patient_Data..tbOutPatient where IDNum = 'no visit'"), "") << "it deletes visits";
}

} // namespace
} // namespace opd::tests
