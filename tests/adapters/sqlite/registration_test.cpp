// What a save writes through the procedures comes back through the loaders as it was typed.
#include "adapters/sqlite/hospital.h"
#include "adapters/sqlite/save_statements.h"

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
        connection->Execute(callOf(procedure, values));
    }

    void expectRow(const std::string& statement, const Columns& columns) {
        const ado::Recordset row = connection->Execute("Patient_Data.." + statement);
        ASSERT_FALSE(row.EndOfFile()) << statement;
        for (const auto& [column, expected] : columns)
            EXPECT_EQ(row.Fields(column).asText(), expected) << statement << " " << column;
    }

    void expectMaster(const std::string& religion) {
        expectRow("sp_aopd_Load_TbMaster '" + number + "'", {{"HospNum", number},
                                                             {"LastName", "NUÑEZ-DELA CRUZ"},
                                                             {"FirstName", "JOSÉ MA."},
                                                             {"MiddleName", "O`HARA"},
                                                             {"HouseStreet", "12 RIZAL ST., UNIT #4"},
                                                             {"Barangay", "SAN JOSE"},
                                                             {"ZipCode", "1000"},
                                                             {"Sex", "M"},
                                                             {"BirthDate", "03/07/1980"},
                                                             {"telnum", "02-555 1234"},
                                                             {"Employer", "EMPLOYER & SONS"},
                                                             {"EmployerAddress", "EMP ADDRESS"},
                                                             {"EmployerTelNum", "EMP TEL"},
                                                             {"CivilStatus", "2"},
                                                             {"Occupation", "OCCUPATION"},
                                                             {"BloodType", "AB+"},
                                                             {"Title", "DR."},
                                                             {"ReligionID", religion}});
    }

    void expectVisit(const Columns& others) {
        const std::string load = "sp_aopd_LoadOutPatient '" + visit + "'";
        expectRow(load, {{"IdNum", visit},
                         {"HospNum", number},
                         {"AccountNum", number},
                         {"Company", ""},
                         {"LastName", "NUÑEZ-DELA CRUZ"},
                         {"Remarks", "REMARKS; -- \"x\" %_["},
                         {"ServiceID1", "1"},
                         {"ServiceID2", "2"},
                         {"ServiceID3", "3"},
                         {"DoctorID1", "D001"},
                         {"DoctorID2", "D002"},
                         {"HospPlan", "P"},
                         {"ConsultationType", "R"},
                         {"Weight", "70.5"},
                         {"Temperature", "37.2"},
                         {"BloodPressure", "120/80"},
                         {"AdmDate", "07/01/2026 09:05:00"},
                         {"PulseRate", "72"},
                         {"CardNumber", "CARD-7"},
                         {"PatientType", "W"},
                         {"Height", "170"},
                         {"PerUnit", "3"},
                         {"RespiratoryRate", "18"},
                         {"HMOApprovalNum", "APPROVAL"},
                         {"SeniorCitizenID", "1"},
                         {"SeniorCitizenIDNo", "SENIOR-ID-NO"},
                         {"BloodType", "AB+"},
                         {"InformantName", "INFORMANT"},
                         {"InformantAddress", "INF ADDRESS"},
                         {"InformantRelation", "INF RELATION"},
                         {"InformantTelNum", "INF TEL"},
                         {"GuarantorName", "GUARANTOR"},
                         {"GuarantorAddress", "GUA ADDRESS"},
                         {"GuarantorTelnum", "GUA TEL"},
                         {"GuarantorEmployer", "GUA EMPLOYER"},
                         {"GuarantorEmployerAddress", "GUA EMP ADDR"}});
        expectRow(load, others);
    }
};

TEST_F(Registration, TheStandardListsComeBack) {
    run("sp_aopd_Update_TbMaster", masterValues(number, visit));
    run("sp_AOPD_UpdateOPDHistory", historyValues(number, visit));
    run("sp_aopd_Update_tbOutpatient", visitValues(number, visit));
    expectMaster("");
    expectVisit({{"ChiefComplaints", "FEVER, 3 days"},
                 {"DiagnosisID1", "DX1"},
                 {"DiagnosisID3", "DX3"},
                 {"Findings", "FINDINGS"},
                 {"Medications", "MEDICATIONS"},
                 {"Corvane", "True"}});
}

TEST_F(Registration, TheLongerListsComeBack) {
    std::vector<std::string> master = masterValues(number, visit);
    master.insert(master.begin() + 25, {"1", "1"}); // the religion, and the senior mark twice
    run("sp_aopd_Update_TbMaster", master);
    std::vector<std::string> row = visitValues(number, visit);
    row.resize(31);                                               // these end with the approval number,
    row.erase(row.begin() + 19);                                  // have no complaint text,
    row.insert(row.begin() + 19, {"CAUSE1", "CAUSE2", "CAUSE3"}); // but causes
    row.insert(row.begin() + 23, "PAY");                          // and a pay code
    run("sp_aopd_Update_tbOutpatient", row);
    expectMaster("1");
    expectVisit({{"CauseofConsultationID1", "CAUSE1"},
                 {"CauseofConsultationID3", "CAUSE3"},
                 {"PayCode", "PAY"},
                 {"ChiefComplaints", ""}});
}

TEST_F(Registration, TheRecordsBesideTheVisitComeBack) {
    run("sp_aopd_Update_TbMaster", masterValues(number, visit));
    run("sp_aopd_Update_tbOutpatient", visitValues(number, visit));
    for (int position = 1; position <= 3; ++position)
        run("OPD_Update_AdditionalDr", {visit, "D00" + std::to_string(position + 2), std::to_string(position)});
    run("sp_AOPD_Save_TbMasterAllergies", {number, "A1", "", "A3", "", "A5"});
    connection->Execute("Patient_Data..proc_Adm_Update_tbMasterMedicalHistory '" + number +
                        "', 1, 0, 1, 0, 0, 1, 0, 1, 'GOUT'");
    connection->Execute(
        "Update Patient_data..tbOutPatient set isChemo = '1', isHemodialysis = '0', isRadiotherapy = '0', "
        "ExpirationDate = '12/31/2026 00:00:00', isForDeposit = '1' where IDnum = '" +
        visit + "'");
    connection->Execute("Update Patient_data..tbOutPatient set isWalkIn = '1', OPDStatus = 'W' where IDnum = '" +
                        visit + "'");
    run("sp_AOPD_SaveHMOLOA", {visit, "LOA-1", "1500.50", "07/01/2026 08:00:00", "RECEIVER", "", "APPROVED", "NOTE"});
    run("sp_AOPD_InsertUpdateOutProfile", {number, visit, "", "", "", "", "", "", "", "", "06/15/2026", "2"});

    expectRow("sp_aopd_LoadOutPatient '" + visit + "'", {{"DoctorID3", "D003"},
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

TEST_F(Registration, DependentsAreReplacedAsAList) {
    for (const char* child : {"ANA", "BEN"})
        connection->Execute("Patient_Data..sp_Adm_SaveDependents  " + number + ", '" + child + "', '05/20/2020' ");
    connection->Execute("Delete Patient_Data..tbMasterDependent where SeqNum = '" + number + "'");
    connection->Execute("Patient_Data..sp_Adm_SaveDependents  " + number + ", 'CARA', '01/02/2019' ");
    EXPECT_EQ(rowsOf(*connection, "Patient_Data..sp_Adm_LoadDependents '" + number + "'"), Rows{"CARA|01/02/2019"});
}

TEST_F(Registration, FileNumbersAreGivenOnceAndInOrder) {
    const auto fileNumber = [&](const std::string& patient) {
        connection->Execute("Patient_data..OPD_UpdateFileNum '" + patient + "'");
        return rowsOf(*connection, "Select FileNum from Patient_Data..tbMaster where HospNum = '" + patient + "'");
    };
    EXPECT_EQ(fileNumber("00000003"), Rows{"1"});
    EXPECT_EQ(fileNumber("00000001"), Rows{"2"});
    EXPECT_EQ(fileNumber("00000003"), Rows{"1"});
    EXPECT_EQ(fileNumber("nobody"), Rows{});
    EXPECT_EQ(fileNumber("00000002"), Rows{"3"});
}

TEST_F(Registration, ExtendedRecordComesBackWithEveryArgument) {
    run("sp_aopd_Update_TbMaster", masterValues(number, visit));
    const char* const columns[] = {"BirthPlace",
                                   "NationalityID",
                                   "ReligionID",
                                   "Spouse",
                                   "mother",
                                   "Father",
                                   "Employer",
                                   "EmployerTelNum",
                                   "EmployerAddress",
                                   "ContactName",
                                   "ContactAddress",
                                   "ContactRelation",
                                   "ContactTelNum",
                                   "SpouseAddress",
                                   "SpouseTelNum",
                                   "FatherAddress",
                                   "FatherTelNum",
                                   "motherAddress",
                                   "motherTelNum",
                                   "BarangayCaptain",
                                   "Position",
                                   "EmploymentType",
                                   "EmploymentLocation",
                                   "EmployerFax",
                                   "EmployerEmail",
                                   "SpouseEmpName",
                                   "SpouseEmpAddress",
                                   "SpouseEmpTelNum",
                                   "SpouseEmpFax",
                                   "SpouseEmpEmail",
                                   "PhilHealth",
                                   "",
                                   "HouseHold",
                                   "Email",
                                   "CellNum"};
    const auto valueOf = [](const std::string& column) {
        if (column == "EmploymentType" || column == "EmploymentLocation" || column == "PhilHealth")
            return std::string{column == "EmploymentType" ? "3" : "1"};
        return column.empty() ? "" : "the " + column;
    };
    std::string statement = "Patient_Data..sp_Adm_UpdateMaster2 '" + number + "'";
    Columns expected;
    for (const char* column : columns) {
        const bool bare = std::string{column}.starts_with("Employment");
        statement += bare ? ", " + valueOf(column) : ", '" + valueOf(column) + "'";
        if (*column != '\0')
            expected.emplace_back(column, valueOf(column));
    }
    connection->Execute(statement + " ");
    expectRow("sp_adm_LoadPatient '" + number + "'", expected);
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
