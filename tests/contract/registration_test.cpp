// What a save writes beside the fields of the form comes back through the loaders, and no number is given twice.
#include "contract/contract.h"
#include "contract/save_statements.h"
#include "support/sql.h"

#include <set>
#include <sys/wait.h>

namespace opd::tests {
namespace {

TEST_P(Contract, BringsBackTheRecordsBesideAVisit) {
    const std::string number = newHospNum(*connection), visit = newOpdNumber(*connection) + "B";
    const auto expectRow = [&](const std::string& statement,
                               const std::vector<std::pair<const char*, std::string>>& columns) {
        const ado::Recordset row = connection->Execute(sql("Patient_Data.." + statement));
        ASSERT_FALSE(row.EndOfFile()) << statement;
        for (const auto& [column, expected] : columns)
            EXPECT_EQ(row.Fields(column).asText(), expected) << statement << " " << column;
    };
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
    EXPECT_EQ(rows("Select isChemo, isHemodialysis, isForDeposit, ExpirationDate from "
                   "Patient_Data..tbOutPatient where IDNUm = '" +
                   visit + "'"),
              Rows{"True|False|True|12/31/2026"});
    EXPECT_EQ(rows("Select IDNum, IsNull(ApprovalNo,'') ApprovalNo, IsNull(LOAAmount,0) LOAAmount, "
                   "LOADateInformed, LOADateReceived, IsNull(LOAStatus,'') LOAStatus From "
                   "Patient_Data..tbOpdHMOLOA Where IDNum = '" +
                   visit + "'"),
              Rows{visit + "|LOA-1|1500.5|07/01/2026 08:00:00|-|APPROVED"});
}

TEST_P(Contract, NeverPutsANewPatientOrVisitInThePlaceOfAnother) {
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
    EXPECT_EQ(rows("Select IDNum from Patient_Data..tbOutPatient where IDNum = '" + freeVisit + "B'"), Rows{});

    // Another program writes under a number that is drawn already: its rows stay, and the next try draws anew.
    const auto other = hospital->connect();
    EXPECT_EQ(writePatient(*other, "00000013", "F000000001B"), "");
    EXPECT_EQ(writePatient(*connection, "00000013", freeVisit + "B"), "23000/2627");
    EXPECT_EQ(writeVisit(*other, "00000002", freeVisit + "B"), "");
    EXPECT_EQ(writeVisit(*connection, "00000001", freeVisit + "B"), "23000/2627");
    EXPECT_EQ(rows("Select HospNum from Patient_Data..tbOutPatient where IDNum = '" + freeVisit + "B'"),
              Rows{"00000002"});
    const std::string next = newHospNum(*connection), nextVisit = newOpdNumber(*connection) + "B";
    EXPECT_EQ(next, "00000014");
    for (int time = 1; time <= 2; ++time) { // what is written once may be written again
        EXPECT_EQ(writePatient(*connection, next, nextVisit), "") << time;
        EXPECT_EQ(writeVisit(*connection, next, nextVisit), "") << time;
    }

    // File numbers are given once, in order, and only if they are free.
    const auto fileNumber = [&](const std::string& patient) {
        run("OPD_UpdateFileNum", {patient});
        return rows("Select FileNum from Patient_Data..tbMaster where HospNum = '" + patient + "'");
    };
    EXPECT_EQ(fileNumber(next), Rows{"1"});
    EXPECT_EQ(fileNumber("nobody"), Rows{});
    connection->Execute("Update Patient_Data..tbCounter set Last = '0' where Name = 'FileNum'");
    EXPECT_EQ(fileNumber("00000003"), Rows{"2"});
    EXPECT_EQ(fileNumber(next), Rows{"1"});
}

/// Draws numbers in a process of its own, which writes them down in the file and ends with status 0.
pid_t drawElsewhere(Hospital& hospital, std::FILE* file) {
    const pid_t child = fork();
    if (child != 0)
        return child;
    try {
        const auto connection = hospital.connect();
        for (int i = 0; i < 150; ++i)
            std::fprintf(file, "%s %s\n", newHospNum(*connection).c_str(), newOpdNumber(*connection).c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "child: %s\n", error.what());
        _exit(1);
    }
    _exit(std::fflush(file));
}

TEST_P(Contract, DrawsEveryNumberOnceForTwoDesksAtATime) {
    connection->Close();
    std::FILE* const files[] = {std::tmpfile(), std::tmpfile()};
    const pid_t desks[] = {drawElsewhere(*hospital, files[0]), drawElsewhere(*hospital, files[1])};
    std::set<std::string> numbers;
    for (int desk = 0; desk < 2; ++desk) {
        int status = -1;
        waitpid(desks[desk], &status, 0);
        EXPECT_EQ(status, 0);
        std::rewind(files[desk]);
        for (char number[16]; std::fscanf(files[desk], "%15s", number) == 1;)
            EXPECT_TRUE(numbers.insert(number).second) << number << " was given twice";
        std::fclose(files[desk]);
    }
    EXPECT_EQ(numbers.size(), 600U);
}

} // namespace
} // namespace opd::tests
