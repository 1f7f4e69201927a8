// What every hospital's database answers, whichever provider serves it: connections, statements and errors alone.
#include "contract/contract.h"
#include "contract/save_statements.h"
#include "support/sql.h"

namespace opd::tests {

void Contract::expectError(const std::string& statement, const std::string& expected) {
    const std::string error = errorOf(*connection, statement);
    const std::string number = expected.substr(expected.find('/'));
    const bool isHeeded = number == "/2627" || number == "/8144" || number == "/201";
    if (!hospital->isReal()) {
        EXPECT_EQ(error, expected) << statement;
        return;
    }
    EXPECT_TRUE(!error.empty() && error != "no message") << statement << ": " << error;
    if (isHeeded) {
        EXPECT_TRUE(error.ends_with(number)) << statement << ": " << error;
    }
}

void Contract::run(const std::string& procedure, const std::vector<std::string>& values) {
    connection->Execute(sql(callOf(procedure, values)));
}

namespace {

TEST_P(Contract, SearchesFindWhomTheyShould) {
    const std::string juan = "00000001";
    const auto byName = [&](const std::string& name, const std::string& sex, const std::string& birth) {
        return "Patient_Data..sp_Adm_MasterPatientSearch '" + name + "','','','" + sex + "','','" + birth + "',0,0";
    };
    struct Case {
        const char* what;
        std::string statement;
        std::vector<std::string> found;
    };
    const Case cases[] = {
        {"the start of a name", byName("DELA", "M", "1980.03.07"), {juan}},
        {"a compound name written otherwise", byName("de la cruz", "M", "1980.03.07"), {juan}},
        {"Ñ in small letters", byName("peña", "M", ""), {"00000003"}},
        {"last and first name", byName("SANTOS, MA", "F", ""), {"00000002"}},
        {"last name with another first name", byName("SANTOS, ZENAIDA", "F", ""), {}},
        {"beginnings of first and middle name", byName("SANTOS, MA RE", "F", ""), {"00000002"}},
        {"another middle name", byName("SANTOS, MARIA LUNA", "F", ""), {}},
        {"a wildcard is a character", byName("%", "M", ""), {}},
        {"so is one in the first name", byName("SANTOS, %", "F", ""), {}},
        {"namesakes born on one day", byName("REYES", "F", "1985.08.15"), {"00000004", "00000005"}},
        {"another sex", byName("DELA CRUZ", "F", "1980.03.07"), {}},
        {"another birth date", byName("DELA CRUZ", "M", "1980.03.08"), {}},
        {"a name of signs alone", byName("-", "M", ""), {}},
        {"an empty name", byName("", "M", ""), {}},
        {"the second try, sex wrong",
         "Patient_Data..sp_Adm_MasterPatientSubSearch 'DELA CRUZ','F','1980.03.07'",
         {juan}},
        {"the second try, no name", "Patient_Data..sp_Adm_MasterPatientSubSearch '','M','1980.03.07'", {}},
        {"a card", "Patient_Data..proc_Bar_Search_Patient '00000001','5'", {juan}},
        {"part of a card", "Patient_Data..proc_Bar_Search_Patient '0000000','5'", {}},
        {"PHIC without hyphens", "Patient_Data..sp_Adm_MasterPatientSearchNew '123456789012','1'", {"00000009"}},
        {"GSIS with blanks", "Patient_Data..sp_Adm_MasterPatientSearchNew '123 4567 8901','2'", {"00000009"}},
        {"SSS otherwise", "Patient_Data..sp_Adm_MasterPatientSearchNew '3-412345678','3'", {"00000009"}},
        {"another SSS", "Patient_Data..sp_Adm_MasterPatientSearchNew '34-1234567','3'", {}},
        {"hyphens alone", "Patient_Data..sp_Adm_MasterPatientSearchNew ' - ','1'", {}},
        {"SSS as it is written", "Patient_Data..sp_Adm_MasterPatientSearchNew '34-1234567-8','3'", {"00000009"}},
        {"the same as PHIC", "Patient_Data..sp_Adm_MasterPatientSearchNew '34-1234567-8','1'", {}},
        {"no number", "Patient_Data..sp_Adm_MasterPatientSearchNew '','1'", {}},
    };
    for (const Case& each : cases) {
        std::vector<std::string> found;
        ado::Recordset answer = connection->Execute(sql(each.statement));
        for (; !answer.EndOfFile(); answer.MoveNext()) {
            ASSERT_EQ(answer.all().columns.size(), 7U) << each.what;
            found.push_back(answer.all().rows[found.size()][3].asText()); // the grid reads this column by its place
        }
        EXPECT_EQ(found, each.found) << each.what;
    }
}

TEST_P(Contract, FindsANameHoweverItIsWritten) {
    const auto found = [&](const std::string& name) {
        std::vector<std::string> numbers;
        ado::Recordset answer = connection->Execute(
            sql("Patient_Data..sp_Adm_MasterPatientSearch '" + name + "','','','M','','1980.03.07',0,0"));
        for (; !answer.EndOfFile(); answer.MoveNext())
            numbers.push_back(answer.Fields("HospNum").asText());
        return numbers;
    };
    const std::vector<std::string> writings[] = {
        {"O`BRIEN", "OBRIEN", "O BRIEN", "o´brien", "O’BRIEN", "O`B"},
        {"PÉREZ-MÜLLER", "PEREZ MULLER", "Perézmüller", "PEREZ, JOSE", "PEREZ, JOSÉ MA O HARA"},
        {"ŠKODA ÇELIK", "SKODA-CELIK", "škoda"},
    };
    for (const std::vector<std::string>& writing : writings) {
        const std::string number = newHospNum(*connection);
        std::vector<std::string> values = masterValues(number, newOpdNumber(*connection) + "B");
        values[1] = writing.front();
        connection->Execute(sql(callOf("sp_aopd_Update_TbMaster", values)));
        for (const std::string& name : writing)
            EXPECT_EQ(found(name), Rows{number}) << name;
    }
}

TEST_P(Contract, ComparesTextInAnyLetterCaseAndBlindToBlanksAtTheEnd) {
    const std::string select = "Select HospNum from patient_DATA..TBMASTER where ";
    const auto found = [&](const std::string& condition) { return rows(select + condition); };
    for (const char* condition : {"LastName = 'PEÑA'", "lastname = 'peña'", "LASTNAME = 'Peña   '",
                                  "LastName like 'peñ%'", "BirthDate = '1990.06.12' and HospNum <> '00000001'"})
        EXPECT_EQ(found(condition), Rows{"00000003"}) << condition;
    for (const char* condition : {"LastName = 'PENA'", "LastName = ' PEÑA'", "LastName like 'eña%'",
                                  "LastName = 'PEÑA' and MiddleName is null"})
        EXPECT_EQ(found(condition), Rows{}) << condition;
    if (hospital->isReal()) // whose collation decides about accents, and whose patterns have more wildcards
        return;
    EXPECT_EQ(found("LastName like 'PEN%' and BirthDate = '06/12/1990'"), Rows{"00000003"});
    for (const char* condition : {"LastName like '%eñ%'", "LastName like 'PE_A%'", "LastName like 'PE[NÑ]A%'"})
        EXPECT_EQ(found(condition), Rows{}) << condition;
}

TEST_P(Contract, ReadsValuesByTheirKinds) {
    ado::Recordset visit;
    visit.Open("Select top 1 * from Patient_Data..tbOutPatient where HospNum = '00000002'", *connection);
    ASSERT_EQ(visit.RecordCount(), 1);
    EXPECT_EQ(visit.Fields("ADMDATE"), ado::Value(DateTime{2026, 6, 29, 9, 15, 0}));
    EXPECT_TRUE(visit.Fields("BillingDate").isNull());
    EXPECT_EQ(visit.Fields("iswalkin"), ado::Value(false));
    EXPECT_THROW(visit.Fields("NoSuchColumn"), ado::Error);
    if (!hospital->isReal()) {
        EXPECT_EQ(now(), morning);
    }
    ado::Recordset ofHospital = connection->Execute("Select GetDate() As CurDate from patient_Data..tbHospitalInfo");
    EXPECT_LE(*ofHospital.Fields("curdate").get<DateTime>(), now());
    EXPECT_EQ(rows("Select BirthDate from Patient_Data..tbMaster where HospNum = '00000001'"), Rows{"03/07/1980"});
    EXPECT_EQ(rows("patient_data..sp_AOPD_ComputeAge '03/07/1980'"), Rows{ageOf({1980, 3, 7})});
    ado::Recordset nobody;
    nobody.CursorLocation = ado::CursorLocation::Client;
    nobody.Open("Select * from Patient_Data..tbMaster where HospNum = 'nobody'", *connection);
    EXPECT_TRUE(nobody.EndOfFile());
    EXPECT_EQ(nobody.RecordCount(), 0);
    EXPECT_EQ(rows("Patient_Data..sp_aopd_LoadOutPatient 'nobody'"), Rows{});
}

// What answers several times is read to its end: the first answer with columns is the statement's, a failure behind it
// is not lost, and the next statement has its own answer.
TEST_P(Contract, ReadsEveryAnswerToItsEnd) {
    const std::string one = "Select HospNum from Patient_Data..tbMaster where HospNum = '00000001'";
    const std::string all = "Select ServiceID, Service from Build_File..tbCoService";
    const std::string remarks = " Patient_Data..tbOutPatient set Remarks = 'several' where IDNum = '2600000001B'";
    const std::string ofRemarks = "Select Remarks from Patient_Data..tbOutPatient where IDNum = '2600000001B'";
    if (!hospital->takesBatches()) { // refused as a whole
        const Rows before = rows(ofRemarks);
        for (const std::string& batch : {one + "; " + all, "Update" + remarks + "; " + one, one + "; Update" + remarks})
            EXPECT_NE(error(batch), "") << batch;
        EXPECT_EQ(rows(ofRemarks), before);
        return;
    }
    EXPECT_EQ(rows(one + "; " + all + "; " + all), Rows{"00000001"});
    EXPECT_EQ(rows(all + "; " + one).size(), 64U);
    EXPECT_EQ(rows(one + " and LastName = 'nobody'; " + one), Rows{}) << "an empty answer is one";
    EXPECT_EQ(rows("Update" + remarks + "; " + ofRemarks), Rows{"several"}) << "a count is none";
    expectError(one + "; " + all + "; Select * from Patient_Data..tbNothing", "42S02/208");
    {
        const ado::Transaction givenUp(*connection);
        EXPECT_EQ(rows("Update Patient_Data..tbOutPatient set Remarks = 'undone' where IDNum = '2600000001B'; " +
                       ofRemarks + "; " + all),
                  Rows{"undone"});
    }
    EXPECT_EQ(rows(ofRemarks), Rows{"several"});
    EXPECT_EQ(rows(one), Rows{"00000001"});
}

TEST_P(Contract, TellsWhatIsWrongAsAServerDoes) {
    const struct {
        const char* statement;
        const char* error;
    } cases[] = {
        {"Select * from Patient_Data..tbNothing", "42S02/208"},
        {"Select * from Nowhere..tbMaster", "42S02/208"},
        {"Select Nothing from Patient_Data..tbMaster", "42S22/207"},
        {"Select v.Nothing from Patient_Data..tbMaster v", "42S22/207"},
        {"Select w.HospNum from Patient_Data..tbMaster v", "42000/4104"},
        {"Update Patient_Data..tbMaster set Nothing = 'x' where HospNum = '1'", "42S22/207"},
        {"Patient_Data..sp_Nothing '1'", "42000/2812"},
        {"Patient_Data..sp_aopd_LoadOutPatient '1','2'", "42000/8144"},
        {"Patient_Data..sp_aopd_LoadOutPatient", "42000/201"},
        {"Patient_Data..proc_Bar_Search_Patient '1'", "42000/201"},
        {"Select HospNum from Patient_Data..tbMaster where BirthDate = '02/30/1980'", "22007/241"},
        {"Patient_Data..sp_Adm_SaveDependents  1, 'CHILD', '13/13/2020' ", "22007/241"},
        {"Update Patient_Data..tbOutPatient set ExpirationDate = 'soon' where IDNum = '2600000001B'", "22007/241"},
        {"Update Patient_Data..tbOutPatient set isChemo = 'perhaps' where IDNum = '2600000001B'", "22018/245"},
        {"Update Patient_Data..tbMaster set HospNum = '00000002' where HospNum = '00000001'", "23000/2627"},
    };
    for (const auto& [statement, expected] : cases)
        expectError(statement, expected);
}

TEST_P(Contract, WritesOddCharactersAsTheyAreAndNothingElse) {
    // A server whose first database has a collation of one code page keeps no others.
    const char* const ofGreek = "select 'Ω' AS Kept";
    const bool keepsAll = !hospital->isReal() || (error(ofGreek).empty() && rows(ofGreek) == Rows{"Ω"});
    const char* const beyondLatin = keepsAll ? "漢字🙂" : "?";
    const Rows before = rows("Select HospNum, LastName from Patient_Data..tbMaster where HospNum <> '00000001'");
    for (const std::string odd : {"`; Delete Patient_Data..tbMaster --", "a\"b", "/* c */ OR 1=1", "100%_[x]",
                                  "??1 :a @b $c", "two\r\nlines", "\\", "ÑÄ€", beyondLatin, " edge "}) {
        connection->Execute(
            sql("Update Patient_Data..tbOutPatient set Remarks = '" + odd + "' where IDNum = '2600000001B'"));
        EXPECT_EQ(rows("Select Remarks from Patient_Data..tbOutPatient where Remarks = '" + odd + "'"), Rows{odd});
    }
    EXPECT_EQ(rows("Select HospNum, LastName from Patient_Data..tbMaster where HospNum <> '00000001'"), before);
    if (hospital->isReal()) // which takes a doubled quote for a quote: what a value may hold, the desk sees to
        return;
    for (const char* broken :
         {"O'HARA", "x''y", "x' or '1' = '1", "'; Delete Patient_Data..tbMaster where HospNum <> '"})
        EXPECT_NE(
            error(std::string{"Update Patient_Data..tbMaster set Title = '"} + broken + "' where HospNum = '00000001'"),
            "")
            << broken;
    EXPECT_EQ(rows("Select HospNum, LastName from Patient_Data..tbMaster where HospNum <> '00000001'"), before);
}

TEST_P(Contract, KeepsACommittedRegistrationAndNothingOfOneRolledBack) {
    const auto other = hospital->connect();
    const auto masters = [&](const std::string& number) {
        return rowsOf(*other, "Select HospNum from Patient_Data..tbMaster where HospNum = '" + number + "'").size();
    };
    const auto write = [&](const std::string& number, const std::string& visit) {
        connection->Execute(sql(callOf("sp_aopd_Update_TbMaster", masterValues(number, visit))));
        connection->Execute(sql(callOf("sp_aopd_Update_tbOutpatient", visitValues(number, visit))));
    };
    const std::string lost = newHospNum(*connection), kept = newHospNum(*connection);
    {
        ado::Transaction transaction(*connection);
        write(lost, "2699999991B");
        EXPECT_EQ(masters(lost), 0U) << "seen before it was committed";
    }
    EXPECT_EQ(masters(lost), 0U);
    {
        ado::Transaction transaction(*connection);
        write(kept, "2699999992B");
        if (!hospital->isReal()) { // a statement that failed leaves the transaction open, and no part of itself
            EXPECT_NE(error("Patient_Data..sp_aopd_Update_tbOutpatient 'too few'"), "");
            expectError(callOf("sp_aopd_Update_tbOutpatient", visitValues("no such patient", "2699999993B")),
                        "23000/547");
        }
        transaction.commit();
    }
    EXPECT_EQ(masters(kept), 1U);
    {
        ado::Transaction transaction(*connection);
        connection->Execute(sql(callOf("sp_aopd_Update_tbOutpatient", visitValues(kept, "2699999994B"))));
        expectError(callOf("sp_aopd_Update_tbOutpatient", visitValues("no such patient", "2699999993B")), "23000/547");
    } // rolled back behind the error, as the desk does
    for (const char* visit : {"2699999993B", "2699999994B"})
        EXPECT_EQ(
            rowsOf(*other, std::string{"Select HospNum from Patient_Data..tbOutPatient where IDNum = '"} + visit + "'"),
            Rows{});
    EXPECT_GT(newHospNum(*connection), kept) << "a number drawn stays used";
}

} // namespace
} // namespace opd::tests
