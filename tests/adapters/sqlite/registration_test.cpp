// What a save writes beside the fields of the form comes back through the loaders, and the checks know whom they mean.
#include "adapters/sqlite/hospital.h"
#include "adapters/sqlite/save_statements.h"
#include "support/sql.h"

#include <gtest/gtest.h>

using namespace opd;
using namespace opd::tests;
using Rows = std::vector<std::string>;

namespace {

using Columns = std::vector<std::pair<const char*, std::string>>;

class Registration : public testing::Test {
  protected:
    EmbeddedHospital hospital;
    std::unique_ptr<ado::Connection> connection = hospital.connect();
    std::string number = newHospNum(*connection);
    std::string visit = newOpdNumber(*connection) + "B";

    void run(const std::string& procedure, const std::vector<std::string>& values) {
        connection->Execute(sql(callOf(procedure, values)));
    }

    void expectRow(const std::string& statement, const Columns& columns) {
        const ado::Recordset row = connection->Execute(sql("Patient_Data.." + statement));
        ASSERT_FALSE(row.EndOfFile()) << statement;
        for (const auto& [column, expected] : columns)
            EXPECT_EQ(row.Fields(column).asText(), expected) << statement << " " << column;
    }
};

TEST_F(Registration, TheRecordsBesideTheVisitComeBack) {
    run("sp_aopd_Update_TbMaster", masterValues(number, visit));
    run("sp_AOPD_UpdateOPDHistory", historyValues(number, visit));
    run("sp_aopd_Update_tbOutpatient", visitValues(number, visit));
    for (int position = 1; position <= 3; ++position)
        run("OPD_Update_AdditionalDr", {visit, "D00" + std::to_string(position + 2), std::to_string(position)});
    run("sp_AOPD_Save_TbMasterAllergies", {number, "A1", "", "A3", "", "A5"});
    connection->Execute(
        sql("Patient_Data..proc_Adm_Update_tbMasterMedicalHistory '" + number + "', 1, 0, 1, 0, 0, 1, 0, 1, 'GOUT'"));
    connection->Execute(
        sql("Update Patient_data..tbOutPatient set isChemo = '1', isHemodialysis = '0', isRadiotherapy = '0', "
            "ExpirationDate = '12/31/2026 00:00:00', isForDeposit = '1' where IDnum = '" +
            visit + "'"));
    connection->Execute(
        sql("Update Patient_data..tbOutPatient set isWalkIn = '1', OPDStatus = 'W' where IDnum = '" + visit + "'"));
    run("sp_AOPD_SaveHMOLOA", {visit, "LOA-1", "1500.50", "07/01/2026 08:00:00", "RECEIVER", "", "APPROVED", "NOTE"});
    run("sp_AOPD_InsertUpdateOutProfile", {number, visit, "", "", "", "", "", "", "", "", "06/15/2026", "2"});

    expectRow("sp_aopd_LoadOutPatient '" + visit + "'", {{"DiagnosisID1", "DX1"},
                                                         {"DiagnosisID3", "DX3"},
                                                         {"Findings", "FINDINGS"},
                                                         {"Medications", "MEDICATIONS"},
                                                         {"DoctorID3", "D003"},
                                                         {"DoctorID4", "D004"},
                                                         {"DoctorID5", "D005"},
                                                         {"isWalkin", "True"},
                                                         {"opdstatus", "W"}});
    expectRow("sp_Aopd_LoadAllergies '" + number + "'",
              {{"AllergyID1", "A1"}, {"AllergyID2", ""}, {"AllergyID5", "A5"}});
    expectRow("proc_Adm_Search_tbMasterMedicalHistory '" + number + "'", {{"Hypertension", "1"},
                                                                          {"Diabetes", "0"},
                                                                          {"Tubercolosis", "0"},
                                                                          {"PepticUlcer", "1"},
                                                                          {"BronchialAsthma", "1"},
                                                                          {"Others", "GOUT"}});
    expectRow("sp_AOPD_LoadOutProfile '" + visit + "'", {{"LMP", "06/15/2026"}});
    EXPECT_EQ(rowsOf(*connection, "Select isChemo, isHemodialysis, isForDeposit, ExpirationDate from "
                                  "Patient_Data..tbOutPatient where IDNUm = '" +
                                      visit + "'"),
              Rows{"True|False|True|12/31/2026"});
    EXPECT_EQ(rowsOf(*connection, "Select IDNum, IsNull(ApprovalNo,'') ApprovalNo, IsNull(LOAAmount,0) LOAAmount, "
                                  "LOADateInformed, LOADateReceived, IsNull(LOAStatus,'') LOAStatus From "
                                  "Patient_Data..tbOpdHMOLOA Where IDNum = '" +
                                      visit + "'"),
              Rows{visit + "|LOA-1|1500.5|07/01/2026 08:00:00|-|APPROVED"});
}

TEST_F(Registration, ANewPatientOrVisitNeverTakesThePlaceOfAnother) {
    const auto writePatient = [&](ado::Connection& by, const std::string& patient, const std::string& ofVisit) {
        return errorOf(by, callOf("sp_aopd_Update_TbMaster", masterValues(patient, ofVisit)));
    };
    const auto writeVisit = [&](ado::Connection& by, const std::string& patient, const std::string& theVisit) {
        return errorOf(by, callOf("sp_aopd_Update_tbOutpatient", visitValues(patient, theVisit)));
    };
    // Counters that are behind: what is drawn is free all the same.
    for (const char* counter : {"HospNum", "OPDID", "FileNum"})
        connection->Execute(
            sql(std::string{"Update Patient_Data..tbCounter set Last = '0' where Name = '"} + counter + "'"));
    EXPECT_EQ(newHospNum(*connection), "00000013") << "of twelve patients";
    const std::string freeVisit = newOpdNumber(*connection);
    EXPECT_EQ(rowsOf(*connection, "Select IDNum from Patient_Data..tbOutPatient where IDNum = '" + freeVisit + "B'"),
              Rows{});

    // Another program writes under a number that is drawn already: its rows stay, and the next try draws anew.
    const auto other = hospital.connect();
    EXPECT_EQ(writePatient(*other, "00000013", "F000000001B"), "");
    EXPECT_EQ(writePatient(*connection, "00000013", freeVisit + "B"), "23000/2627");
    EXPECT_EQ(writeVisit(*other, "00000002", freeVisit + "B"), "");
    EXPECT_EQ(writeVisit(*connection, "00000001", freeVisit + "B"), "23000/2627");
    EXPECT_EQ(rowsOf(*connection, "Select HospNum from Patient_Data..tbOutPatient where IDNum = '" + freeVisit + "B'"),
              Rows{"00000002"});
    const std::string next = newHospNum(*connection), nextVisit = newOpdNumber(*connection) + "B";
    EXPECT_EQ(next, "00000014");
    for (int time = 1; time <= 2; ++time) { // what is written once may be written again
        EXPECT_EQ(writePatient(*connection, next, nextVisit), "") << time;
        EXPECT_EQ(writeVisit(*connection, next, nextVisit), "") << time;
    }

    // File numbers likewise.
    for (const auto& [patient, fileNumber] : {std::pair{next, "1"}, {std::string{"00000003"}, "2"}}) {
        connection->Execute("Update Patient_Data..tbCounter set Last = '0' where Name = 'FileNum'");
        connection->Execute(sql("Patient_data..OPD_UpdateFileNum '" + patient + "'"));
        EXPECT_EQ(rowsOf(*connection, "Select FileNum from Patient_Data..tbMaster where HospNum = '" + patient + "'"),
                  Rows{fileNumber});
    }
}

TEST_F(Registration, FileNumbersAreGivenOnceAndInOrder) {
    const auto fileNumber = [&](const std::string& patient) {
        connection->Execute(sql("Patient_data..OPD_UpdateFileNum '" + patient + "'"));
        return rowsOf(*connection, "Select FileNum from Patient_Data..tbMaster where HospNum = '" + patient + "'");
    };
    EXPECT_EQ(fileNumber("00000003"), Rows{"1"});
    EXPECT_EQ(fileNumber("00000001"), Rows{"2"});
    EXPECT_EQ(fileNumber("00000003"), Rows{"1"});
    EXPECT_EQ(fileNumber("nobody"), Rows{});
    EXPECT_EQ(fileNumber("00000002"), Rows{"3"});
}

TEST_F(Registration, ChecksAnswerForThePatientsTheyMean) {
    const struct {
        const char* statement;
        Rows expected;
    } cases[] = {
        {"PATIENT_DATA..sp_AOPD_SearchSimilarRecords 'dela cruz','JUAN',46", {"00000001"}},
        {"PATIENT_DATA..sp_AOPD_SearchSimilarRecords 'DELA CRUZ','JUAN',45", {}},
        {"PATIENT_DATA..sp_AOPD_CheckIfAdmitted '00000007'", {"50001"}},
        {"PATIENT_DATA..sp_AOPD_CheckIfAdmitted '00000001'", {}},
        {"Patient_Data..sp_AOPD_CheckPatientsMasterAccount '00000010'", {"00000010"}},
        {"Patient_Data..sp_AOPD_CheckPatientsMasterAccount '00000001'", {}},
        {"Patient_Data..sp_aopd_Check_if_admitted_today '00000002', '06/29/2026'", {"2600000001B"}},
        {"Patient_Data..sp_aopd_Check_if_admitted_today '00000002', '06/30/2026'", {}},
        {"Patient_Data..sp_aopd_Check_if_admitted_today '00000006', '06/12/2026'", {}},
        {"Patient_Data..sp_aopd_Check_if_admitted_today '00000007', '06/28/2026'", {"50001"}},
        {"Patient_Data..sp_aopd_Check_if_admitted_today '00000007', '06/29/2026'", {}},
        {"Select IDNum from Patient_Data..tbOutPatient where Hospnum = '00000002' and BillingDate is null and dcrDate "
         "is "
         "null and OPDStatus <> 'R' order by admdate desc",
         {"2600000001B"}},
        {"Select IDNum from Patient_Data..tbOutPatient where Hospnum = '00000006' and BillingDate is null and dcrDate "
         "is "
         "null and OPDStatus <> 'R' order by admdate desc",
         {}},
        {"Select ZipCode, Town, Province from Build_File..tbCoAddress where ZipCode = '9999'", {}},
        {"Select Nationality from Build_File..tbCoNationality where NationalityID = '1'", {"FILIPINO"}},
        {"Select Religion from Build_File..tbCoReligion where ReligionID = '1'", {"ROMAN CATHOLIC"}},
    };
    for (const auto& [statement, expected] : cases)
        EXPECT_EQ(rowsOf(*connection, statement), expected) << statement;
}

} // namespace
