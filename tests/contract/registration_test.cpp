// No number is given twice, and no record takes the place of another.
#include "contract/contract.h"
#include "contract/drawing.h"
#include "contract/save_statements.h"
#include "support/sql.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <sys/wait.h>

namespace opd::tests {

void Contract::resetCounters() {
    for (const char* counter : {"HospNum", "OPDID", "FileNum"})
        connection->Execute(
            sql(std::string{"Update Patient_Data..tbCounter set Last = '0' where Name = '"} + counter + "'"));
}

namespace {

/// The smallest number above zero that is not among them, written with so many digits.
std::string firstFree(const std::vector<std::string>& taken, std::size_t digits) {
    for (int number = 1;; ++number) {
        std::string text = std::to_string(number);
        text.insert(0, digits - std::min(digits, text.size()), '0');
        if (std::find(taken.begin(), taken.end(), text) == taken.end())
            return text;
    }
}

TEST_P(Contract, NeverPutsANewPatientOrVisitInThePlaceOfAnother) {
    const auto writePatient = [&](ado::Connection& by, const std::string& patient, const std::string& ofVisit) {
        return errorOf(by, callOf("sp_aopd_Update_TbMaster", masterValues(patient, ofVisit)));
    };
    const auto writeVisit = [&](ado::Connection& by, const std::string& patient, const std::string& theVisit) {
        return errorOf(by, callOf("sp_aopd_Update_tbOutpatient", visitValues(patient, theVisit)));
    };
    // Counters that are behind: what is drawn is free all the same.
    const Rows patients = rows("Select HospNum from Patient_Data..tbMaster where HospNum <> ''");
    const std::string first = firstFree(patients, 8);
    resetCounters();
    EXPECT_EQ(newHospNum(*connection), first);
    const std::string freeVisit = newOpdNumber(*connection) + "B";
    const std::string patientOfVisit =
        "Select HospNum from Patient_Data..tbOutPatient where IDNum = '" + freeVisit + "'";
    EXPECT_EQ(rows(patientOfVisit), Rows{});

    // Another program writes under a number that is drawn already: its rows stay, and the next try draws anew.
    const auto other = hospital->connect();
    EXPECT_EQ(writePatient(*other, first, "F000000001B"), "");
    expectError(callOf("sp_aopd_Update_TbMaster", masterValues(first, freeVisit)), "23000/2627");
    EXPECT_EQ(writeVisit(*other, first, freeVisit), "");
    expectError(callOf("sp_aopd_Update_tbOutpatient", visitValues("00000001", freeVisit)), "23000/2627");
    EXPECT_EQ(rows(patientOfVisit), Rows{first});
    const std::string next = newHospNum(*connection), nextVisit = newOpdNumber(*connection) + "B";
    EXPECT_EQ(std::count(patients.begin(), patients.end(), next), 0);
    EXPECT_GT(next, first);
    for (int time = 1; time <= 2; ++time) { // what is written once may be written again
        EXPECT_EQ(writePatient(*connection, next, nextVisit), "") << time;
        EXPECT_EQ(writeVisit(*connection, next, nextVisit), "") << time;
    }
}

TEST_P(Contract, GivesFileNumbersOnceAndInOrder) {
    const auto newPatient = [&] {
        std::string number = newHospNum(*connection);
        run("sp_aopd_Update_TbMaster", masterValues(number, newOpdNumber(*connection) + "B"));
        return number;
    };
    const auto fileNumber = [&](const std::string& patient) {
        run("OPD_UpdateFileNum", {patient});
        return rows("Select FileNum from Patient_Data..tbMaster where HospNum = '" + patient + "'");
    };
    const std::string one = newPatient(), another = newPatient();
    const std::string free = firstFree(rows("Select FileNum from Patient_Data..tbMaster where HospNum <> ''"), 0);
    resetCounters();
    EXPECT_EQ(fileNumber(one), Rows{free});
    EXPECT_EQ(fileNumber("nobody"), Rows{});
    resetCounters();
    const Rows theNext = fileNumber(another);
    ASSERT_EQ(theNext.size(), 1U);
    EXPECT_GT(std::stoi(theNext.front()), std::stoi(free));
    EXPECT_EQ(fileNumber(one), Rows{free});
}

TEST_P(Contract, NotesWhatASaveChangedByWhomAndWhere) {
    const std::string patient = newHospNum(*connection);
    std::string visit = newOpdNumber(*connection) + "B";
    const auto noted = [&] {
        return rows(
            "Select What, OldValue, NewValue, UserID, IDNum from Patient_Data..tbMasterAudit where HospNum = '" +
            patient + "' order by AuditID");
    };
    const auto save = [&](const std::vector<std::string>& master, const std::string& user) {
        ado::Transaction transaction(*connection);
        connection->Execute(sql(callOf("sp_aopd_Update_TbMaster", master)));
        run("sp_AOPD_Save_TbMasterAllergies", {patient, "A01", "", "", "", ""});
        std::vector<std::string> values = visitValues(patient, visit);
        values.at(17) = user;
        if (!user.empty())
            connection->Execute(sql(callOf("sp_aopd_Update_tbOutpatient", values)));
        transaction.commit();
    };
    // One line for a new patient, whatever is written of it, and however often.
    std::vector<std::string> master = masterValues(patient, visit);
    save(master, "ANA");
    connection->Execute(sql(extendedRecord(patient, "MANILA", "1")));
    const Rows registered{"registered|-|-|ANA|" + visit};
    EXPECT_EQ(noted(), registered);
    save(master, "ANA");
    EXPECT_EQ(noted(), registered);

    // Columns that changed, with the letter case, a date and a number among them; what is rolled back is not noted.
    master[1] = "Nuñez-DELA CRUZ";
    master[8] = "12/31/1980";
    {
        const ado::Transaction givenUp(*connection);
        connection->Execute(sql(callOf("sp_aopd_Update_TbMaster", master)));
    }
    EXPECT_EQ(noted(), registered);
    const std::string first = visit;
    visit = newOpdNumber(*connection) + "B";
    master[14] = visit;
    save(master, "BEN");
    connection->Execute(sql(extendedRecord(patient, "CEBU", "2")));
    Rows expected = registered;
    expected.insert(expected.end(), {"LastName|NUÑEZ-DELA CRUZ|Nuñez-DELA CRUZ|BEN|" + visit,
                                     "BirthDate|1980-03-07|1980-12-31|BEN|" + visit,
                                     "BirthPlace|MANILA|CEBU|BEN|" + visit, "EmploymentType|1|2|BEN|" + visit});
    EXPECT_EQ(noted(), expected);

    // A save of the patient alone tells its user last.
    master[2] = "JOSE";
    master[14] = first;
    save(master, "");
    EXPECT_EQ(noted().back(), "FirstName|JOSÉ MA.|JOSE|-|" + first);
    run("sp_AOPD_SaveOPD_UserLog", {first, "CORA", "Edited"});
    expected.push_back("FirstName|JOSÉ MA.|JOSE|CORA|" + first);
    EXPECT_EQ(noted(), expected);
    EXPECT_EQ(
        rows("Select ChangedAt from Patient_Data..tbMasterAudit where Login <> '' and Workstation <> '' and What = "
             "'FirstName'")
            .size(),
        1U);
}

TEST_P(Contract, DrawsEveryNumberOnceForDesksAtATime) {
    connection->Close();
    const TemporaryFolder notes;
    std::vector<pid_t> desks;
    for (std::size_t desk = 0; desk < (hospital->isReal() ? 8U : 2U); ++desk)
        desks.push_back(startDrawing(*hospital, notes / std::to_string(desk), 300));
    for (const pid_t desk : desks) {
        int status = -1;
        waitpid(desk, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(drawnNumbers(notes.path()).size(), desks.size() * 300);
}

} // namespace
} // namespace opd::tests
