// What a save writes is what loading answers, in each of the shapes that hospitals call the procedures with.
#include "contract/contract.h"
#include "contract/save_statements.h"
#include "support/sql.h"

#include <chrono>
#include <future>

namespace opd::tests {
namespace {

std::string joined(const ado::Recordset& row, const std::vector<std::string>& columns) {
    std::string line;
    for (const std::string& column : columns)
        line += (line.empty() ? "" : "|") + row.Fields(column).asText();
    return line;
}

/// The list of 30 with the religion behind the twenty-fifth value, and the senior mark twice.
std::vector<std::string> withReligion(std::vector<std::string> values) {
    values.insert(values.begin() + 25, {"2", "1"});
    return values;
}

/// The list of 33 with causes and pay code in the place of complaint and marks.
std::vector<std::string> withCauses(std::vector<std::string> values) {
    values.resize(31);
    values[19] = "D03";
    values.insert(values.begin() + 20, {"", "L01"});
    values.insert(values.begin() + 23, "P1");
    return values;
}

/// The numbers and lists of a new patient and visit, and what loading answers of them.
struct Saved {
    explicit Saved(ado::Connection& by) : connection(by) {}

    ado::Connection& connection;
    const std::string patient = newHospNum(connection);
    const std::string visit = newOpdNumber(connection) + "B";
    const std::vector<std::string> master = masterValues(patient, visit);
    const std::vector<std::string> values = visitValues(patient, visit);

    ado::Recordset loaded(const std::string& procedure, const std::string& number) const {
        return connection.Execute(sql(callOf(procedure, {number})));
    }

    std::string loadedVisit(const std::vector<std::string>& columns) const {
        return joined(loaded("sp_aopd_LoadOutPatient", visit), columns);
    }
};

TEST_P(Contract, AVisitInEveryShapeIsLoadedAsItWasWritten) {
    const Saved saved(*connection);
    const std::string &patient = saved.patient, &visit = saved.visit;
    const std::string ofMaster = "NUÑEZ-DELA CRUZ|JOSÉ MA.|O`HARA|GUARANTOR|GUA EMP ADDR|INF TEL|SENIOR-ID-NO";
    const std::vector<std::string> masterColumns{
        "LastName",        "FirstName",        "MiddleName", "GuarantorName", "GuarantorEmployerAddress",
        "InformantTelNum", "SeniorCitizenIDNo"};
    const std::vector<std::string> visitColumns{
        "HospNum",         "AccountNum",      "HospPlan",         "Remarks",        "ServiceID3", "DoctorID1",
        "DoctorID2",       "Weight",          "Temperature",      "VisitKind",      "UserID",     "PulseRate",
        "CardNumber",      "PatientType",     "ConsultationType", "AccountRemarks", "Height",     "PerUnit",
        "SeniorCitizenID", "RespiratoryRate", "HMOApprovalNum"};
    const std::string ofVisit =
        "|P|REMARKS; -- \"x\" %_[|3|D001|D002|70.5|37.2|N|CLERK|72|CARD-7|W|R|ACCOUNT REMARKS|170|3|1|"
        "18|APPROVAL";
    const auto expectVisit = [&] {
        EXPECT_EQ(saved.loadedVisit(masterColumns), ofMaster);
        EXPECT_EQ(saved.loadedVisit(visitColumns), patient + "|" + patient + ofVisit);
        EXPECT_EQ(saved.loaded("sp_aopd_LoadOutPatient", visit).Fields("AdmDate"),
                  ado::Value(DateTime{2026, 7, 1, 9, 5, 0}));
    };
    run("sp_aopd_Update_TbMaster", saved.master);
    run("sp_aopd_Update_tbOutpatient", saved.values);
    expectVisit();
    EXPECT_EQ(saved.loadedVisit({"ChiefComplaints"}), "FEVER, 3 days");
    EXPECT_EQ(saved.loaded("sp_aopd_LoadOutPatient", visit).Fields("Corvane"), ado::Value(true));
    EXPECT_TRUE(saved.loaded("sp_aopd_LoadOutPatient", visit).Fields("PayCode").isNull());

    run("sp_aopd_Update_TbMaster", withReligion(saved.master));
    run("sp_aopd_Update_tbOutpatient", withCauses(saved.values));
    expectVisit();
    EXPECT_EQ(saved.loadedVisit({"CauseofConsultationID1", "CauseofConsultationID3", "CauseofConsultation3", "PayCode",
                                 "ChiefComplaints"}),
              "D03|L01|LABORATORY|P1|FEVER, 3 days")
        << "what this list does not carry stays";
    const ado::Recordset stored = saved.loaded("sp_aopd_Load_TbMaster", patient);
    EXPECT_EQ(joined(stored, {"HospNum", "Sex", "HouseStreet", "ZipCode", "Province", "telnum", "CivilStatus",
                              "BloodType", "Occupation", "Title", "Religion", "EmployerTelNum"}),
              patient +
                  "|M|12 RIZAL ST., UNIT #4|1000|MANILA, METRO MANILA|02-555 1234|2|AB+|OCCUPATION|DR.|ISLAM|EMP TEL");
    EXPECT_EQ(stored.Fields("BirthDate").get<DateTime>()->date(), (DateTime{1980, 3, 7, 0, 0, 0}));

    std::vector<std::string> ofCompany = saved.values; // an account of its own: a health plan, and a company
    for (const auto& [account, plan] : {std::pair{"HMO-01", "I"}, std::pair{"COM-01", "C"}}) {
        ofCompany[2] = account;
        ofCompany[11] = "C";
        ofCompany[12] = "W";
        run("sp_aopd_Update_tbOutpatient", ofCompany);
        EXPECT_EQ(saved.loadedVisit({"AccountNum", "HospPlan", "ConsultationType"}),
                  std::string{account} + "|" + plan + "|W");
    }
}

TEST_P(Contract, WhatBelongsToThePatientIsReplacedAsAWhole) {
    const Saved saved(*connection);
    const std::string& patient = saved.patient;
    run("sp_aopd_Update_TbMaster", saved.master);
    for (const std::string round : {"1", "2"}) {
        SCOPED_TRACE(round);
        run("sp_AOPD_Save_TbMasterAllergies", {patient, "A0" + round, "", "A02", "", ""});
        EXPECT_EQ(rows(callOf("sp_Aopd_LoadAllergies", {patient})), Rows{"A0" + round + "||A02||"});
        connection->Execute(sql(callOf("proc_Adm_Update_tbMasterMedicalHistory", {patient}) +
                                ", 1, 0, 0, 0, 0, 0, 0, " + round + ", 'OTHERS " + round + "'"));
        EXPECT_EQ(joined(saved.loaded("proc_Adm_Search_tbMasterMedicalHistory", patient),
                         {"Hypertension", "Diabetes", "BronchialAsthma", "Others"}),
                  "1|0|" + round + "|OTHERS " + round);
        connection->Execute(
            sql("Patient_Data..sp_Adm_UpdateMaster2 '" + patient + "','PLACE " + round +
                "','1','3','SPOUSE','MOTHER','FATHER','E','T','A','C','CA','CR','CT','SA','ST','FA','FT','MA',"
                "'MT','CAPTAIN','POSITION',1,2,'FAX','MAIL','SE','SEA','SET','SEF','SEE','1','','HOUSE',"
                "'a@b.ph','0917 " +
                round + "' "));
        EXPECT_EQ(saved.loaded("sp_adm_LoadPatient", patient).Fields("EmploymentType"), ado::Value(1));
        EXPECT_EQ(joined(saved.loaded("sp_adm_LoadPatient", patient),
                         {"BirthPlace", "mother", "ContactName", "EmploymentLocation", "PhilHealth", "CellNum"}),
                  "PLACE " + round + "|MOTHER|C|2|1|0917 " + round);
    }
    const std::string add = "Patient_Data..sp_Adm_SaveDependents  " + patient + ", '"; // a number without quotes
    connection->Execute(sql(add + "YOUNGER', '03/05/2015' "));
    connection->Execute(sql(add + "ELDER', '12/31/2010' "));
    const ado::Recordset children = saved.loaded("sp_Adm_LoadDependents", patient);
    EXPECT_EQ(joined(children, {"Name"}), "ELDER");
    EXPECT_EQ(children.Fields("BirthDate").get<DateTime>()->date(), (DateTime{2010, 12, 31, 0, 0, 0}));
    connection->Execute(sql("Delete Patient_Data..tbMasterDependent where SeqNum = '" + patient + "'"));
    EXPECT_TRUE(saved.loaded("sp_Adm_LoadDependents", patient).EndOfFile());
}

TEST_P(Contract, WhatFollowsAVisitIsKeptWithIt) {
    const Saved saved(*connection);
    const std::string &patient = saved.patient, &visit = saved.visit;
    std::string longText;
    while (longText.size() < 5000)
        longText += "Ñandú ";
    longText += "."; // 4,167 characters
    run("sp_aopd_Update_TbMaster", saved.master);
    run("sp_AOPD_UpdateOPDHistory", {patient, visit, "1", "D001", "DX1", "", "DX3", longText, "MEDICATION", "REMARKS",
                                     "L01", "", "D03", "COMPLAINT"}); // before the visit, as the desk does
    run("sp_aopd_Update_tbOutpatient", saved.values);
    EXPECT_EQ(saved.loadedVisit(
                  {"Findings", "Medications", "DiagnosisID3", "CauseofConsultation1", "CauseofConsultationID3"}),
              longText + "|MEDICATION|DX3|LABORATORY|D03");
    for (int position = 1; position <= 3; ++position)
        run("OPD_Update_AdditionalDr", {visit, "D00" + std::to_string(position), std::to_string(position)});
    EXPECT_EQ(saved.loadedVisit({"DoctorID1", "DoctorID3", "DoctorID4", "DoctorID5"}), "D001|D001|D002|D003");

    connection->Execute(
        sql("Update Patient_data..tbOutPatient set isChemo = '1', isHemodialysis = '0', isRadiotherapy = '1', "
            "ExpirationDate = '12/31/2026 00:00:00', isForDeposit = '1' where IDnum = '" +
            visit + "'"));
    const ado::Recordset marked = saved.loaded("sp_aopd_LoadOutPatient", visit);
    EXPECT_EQ(marked.Fields("isChemo"), ado::Value(true));
    EXPECT_EQ(marked.Fields("isHemodialysis"), ado::Value(false));
    EXPECT_EQ(marked.Fields("ExpirationDate"), ado::Value(DateTime{2026, 12, 31, 0, 0, 0}));
    run("OPD_updateConsultationDate", {visit});
    EXPECT_LE(*saved.loaded("sp_aopd_LoadOutPatient", visit).Fields("ConsultationDate").get<DateTime>(), now());

    for (const std::string amount : {"1234.5", "99"}) {
        run("sp_AOPD_SaveHMOLOA",
            {visit, "LOA-7", amount, "07/01/2026 09:05:00", "RECEIVER", "", "APPROVED", "REMARK"});
        const ado::Recordset letter =
            connection->Execute(sql("Select * from Patient_Data..tbOpdHMOLOA where IDNum = '" + visit + "'"));
        EXPECT_EQ(letter.Fields("LOAAmount").asNumber(), std::stod(amount));
        EXPECT_EQ(letter.Fields("LOADateInformed"), ado::Value(DateTime{2026, 7, 1, 9, 5, 0}));
        EXPECT_TRUE(letter.Fields("LOADateReceived").isNull()) << "a blank date is none";
    }
    const auto period = [&](const std::string& date) {
        run("sp_AOPD_InsertUpdateOutProfile", {patient, visit, "", "", "", "", "", "", "", "", date, "2"});
        return saved.loaded("sp_AOPD_LoadOutProfile", visit).Fields("LMP");
    };
    EXPECT_EQ(period("06/20/2026").get<DateTime>()->date(), (DateTime{2026, 6, 20, 0, 0, 0}));
    EXPECT_TRUE(period("").isNull());
    EXPECT_EQ(rows("billing..sp_OPD_ComputeHospitalBill'" + visit + "'"), Rows{});
    const ado::Recordset bill =
        connection->Execute(sql(std::string{"billing..sp_OPD_ComputeHospitalBill'"} + billedVisit + "'"));
    ASSERT_EQ(bill.all().rows.size(), 1U);
    EXPECT_EQ(bill.Fields("HospitalBill"), ado::Value(billedAmount));
}

TEST_P(Contract, AStatusIsWrittenAndLogged) {
    const Saved saved(*connection);
    const std::string &patient = saved.patient, &visit = saved.visit;
    run("sp_aopd_Update_TbMaster", saved.master);
    run("sp_aopd_Update_tbOutpatient", saved.values);
    const auto status = [&](const std::string& statement) {
        connection->Execute(sql(statement + visit + "'"));
        return saved.loadedVisit({"OPDStatus"}) + "/" +
               std::to_string(rows(callOf("sp_aopd_Check_if_admitted_today", {patient, "07/01/2026"})).size());
    };
    EXPECT_EQ(status("Update Patient_data..tbOutPatient set isWalkIn = '1', OPDStatus = 'W' where IDnum = '"), "W/1");
    EXPECT_EQ(status("update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '"), "R/0");
    EXPECT_EQ(status("update Patient_Data..tboutpatient set opdstatus = '' where idnum = '"), "/1");
    run("sp_AOPD_SaveOPD_UserLog", {visit, "CLERK", "Edited"});
    run("sp_AOPD_SaveOPDRevokedLog", {visit, "CLERK", "Revoked"});
    EXPECT_EQ(rows("Select UserID, Action from Patient_Data..tbOPDUserLog where IDNum = '" + visit + "'"),
              Rows{"CLERK|Edited"});
    EXPECT_EQ(rows("Select UserID, Action from Patient_Data..tbOPDRevokedLog where IDNum = '" + visit + "'"),
              Rows{"CLERK|Revoked"});
}

// What a desk asked for within the transaction that writes stays true until that ends; a revocation of the visit and a
// save of the patient wait.
TEST_P(Contract, HoldsAVisitAndAPatientFromTheAskingToTheWriting) {
    using namespace std::chrono_literals;
    const Saved saved(*connection);
    run("sp_aopd_Update_TbMaster", saved.master);
    run("sp_aopd_Update_tbOutpatient", saved.values);
    const auto other = hospital->connect();
    const std::string visit = saved.visit + "'";
    const auto holds = [&](const std::string& asked, const std::string& theirs, const std::string& ours) {
        std::future<void> waits;
        {
            ado::Transaction transaction(*connection);
            EXPECT_FALSE(connection->Execute(sql(asked)).EndOfFile());
            waits = std::async(std::launch::async, [&] { other->Execute(sql(theirs)); });
            EXPECT_EQ(waits.wait_for(300ms), std::future_status::timeout) << asked << " held nothing";
            connection->Execute(sql(ours));
            transaction.commit();
        }
        waits.get();
    };
    holds(callOf("sp_aopd_LoadOutPatient", {saved.visit}),
          "update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = '" + visit,
          "Update Patient_data..tbOutPatient set isWalkIn = '1', OPDStatus = 'W' where IDnum = '" + visit);
    EXPECT_EQ(saved.loadedVisit({"OPDStatus"}), "R");

    std::vector<std::string> theirs = saved.master;
    theirs[4] = "99 OTHER STREET";
    holds(callOf("sp_aopd_Load_TbMaster", {saved.patient}), callOf("sp_aopd_Update_TbMaster", theirs),
          callOf("sp_aopd_Update_TbMaster", saved.master));
    EXPECT_EQ(saved.loaded("sp_aopd_Load_TbMaster", saved.patient).Fields("HouseStreet").asText(), theirs[4]);
}

} // namespace
} // namespace opd::tests
