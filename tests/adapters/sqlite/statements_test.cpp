// What the embedded database refuses. What it takes, operator scripts send.
#include "adapters/sqlite/hospital.h"

#include <gtest/gtest.h>

using namespace opd;
using namespace opd::tests;

namespace {

TEST(Statements, AreRefusedInEveryShapeThatTheDeskDoesNotSendAndChangeNothing) {
    EmbeddedHospital hospital;
    const auto connection = hospital.connect();
    const std::string everybody = "Select HospNum, LastName, Title from Patient_Data..tbMaster";
    const auto before = rowsOf(*connection, everybody);
    for (const char* statement : {
             "",
             " ",
             "nonsense",
             "Select",
             "Select * from",
             "Select * from Patient_Data..tbMaster;",
             "Select * from Patient_Data..tbMaster; Delete Patient_Data..tbMaster where Sex = 'M'",
             "Select * from Patient_Data..tbMaster Delete Patient_Data..tbMaster where Sex = 'M'",
             "Select * from Patient_Data..tbMaster -- all",
             "Select * /* all */ from Patient_Data..tbMaster",
             "Select * from Patient_Data..tbMaster where HospNum = 'x",
             "Select * from Patient_Data..tbMaster where HospNum = 'x''y'",
             "Select * from Patient_Data..tbMaster where HospNum = 'x' or Sex = 'M'",
             "Select * from Patient_Data..tbMaster where HospNum = HospNum",
             "Select * from Patient_Data..tbMaster, Patient_Data..tbOutPatient",
             "Select v.IDNum from Patient_Data..tbOutPatient v left Patient_Data..tbMaster m on m.HospNum = v.HospNum",
             "Select v.IDNum from Patient_Data..tbOutPatient v inner join Patient_Data..tbMaster m",
             "Select v.IDNum from Patient_Data..tbOutPatient v inner join Patient_Data..tbMaster m on m.Sex = 'M'",
             "Select IDNum from Patient_Data..tbOutPatient v",
             "Select v.IDNum from Patient_Data..tbOutPatient v where v.AdmDate > v.BillingDate",
             "Delete Patient_Data..tbMaster m inner join Patient_Data..tbOutPatient v on v.HospNum = m.HospNum",
             "Select * from tbMaster",
             "Select * from Patient_Data.tbMaster",
             "Select * from Patient_Data_tbMaster",
             "Select * from sqlite..schema",
             "Select top x * from Patient_Data..tbMaster",
             "Select top 'x' * from Patient_Data..tbMaster",
             "Select top 99999999999999999999 * from Patient_Data..tbMaster",
             "Select isnull(HospNum,99999999999999999999) n from Patient_Data..tbMaster",
             "Select isnull(HospNum,1x) n from Patient_Data..tbMaster",
             "Select upper(LastName) from Patient_Data..tbMaster",
             "Select LastName",
             "Delete Patient_Data..tbMaster",
             "Update Patient_Data..tbMaster set Title = 'x'",
             "Update Patient_Data..tbMaster set Title = LastName where Sex = 'M'",
             "Insert into Patient_Data..tbMaster values ('x')",
             "Drop table Patient_Data..tbMaster",
             "Patient_Data..proc_Bar_Search_Patient '00000001','5' Delete Patient_Data..tbMaster where Sex = 'M'",
             "Patient_Data..proc_Bar_Search_Patient '00000001' '5'",
             "Patient_Data..proc_Bar_Search_Patient '00000001','5',",
             "Patient_Data..proc_Bar_Search_Patient ('00000001','5')",
             "exec Patient_Data..proc_Bar_Search_Patient '00000001','5'",
             "Nowhere..proc_Bar_Search_Patient '00000001','5'",
             "billing..sp_aopd_Load_TbMaster '00000001'",
             "Pragma user_version",
             "Attach database 'x' as y",
         })
        EXPECT_NE(errorOf(*connection, statement), "") << statement;
    EXPECT_EQ(rowsOf(*connection, everybody), before);
}

TEST(Statements, OfOneShapeAreEachRunWithTheirOwnValues) {
    EmbeddedHospital hospital;
    const auto connection = hospital.connect();
    const std::string all = " from Patient_Data..tbMaster ";
    const auto answer = [&](const std::string& statement) { return rowsOf(*connection, statement); };
    const auto expectAll = [&] {
        EXPECT_EQ(answer("Select top 1 HospNum" + all).size(), 1U);
        EXPECT_EQ(answer("Select top 3 HospNum" + all).size(), 3U);
        EXPECT_EQ(answer("Select isnull(PHICNum,0) n" + all + "where HospNum = '00000001'").front(), "0");
        EXPECT_EQ(answer("Select isnull(PHICNum,7) n" + all + "where HospNum = '00000001'").front(), "7");
        EXPECT_EQ(answer("Select isnull(PHICNum,'x') n" + all + "where HospNum = '00000001'").front(), "x");
        EXPECT_EQ(answer("Select HospNum" + all + "where LastName like 'SANTOS%'").size(), 2U);
        EXPECT_EQ(answer("Select HospNum" + all + "where LastName like 'SANTOS'").size(), 1U);
        EXPECT_EQ(answer("Select HospNum" + all + "where BirthDate = '03/07/1980'").front(), "00000001");
        EXPECT_EQ(answer("Select HospNum" + all + "where BirthDate = '1990-06-12'").front(), "00000003");
        EXPECT_NE(errorOf(*connection, "Select HospNum" + all + "where BirthDate = 'no day'"), "");
        for (const char* number : {"00000002", "00000005"})
            EXPECT_EQ(answer(std::string{"Patient_Data..sp_aopd_Load_TbMaster '"} + number + "'").front().substr(0, 8),
                      number);
    };
    expectAll();
    expectAll(); // of known shapes
    for (int i = 0; i < 300; ++i)
        EXPECT_EQ(answer("Select HospNum c" + std::to_string(i) + all + "where HospNum = '00000001'").size(), 1U);
    expectAll();
}

TEST(Statements, ThatAreKeptFollowATableThatHasChanged) {
    EmbeddedHospital hospital;
    const auto connection = hospital.connect();
    const auto columns = [&] {
        return connection->Execute("select * from Patient_Data..tbHospitalInfo").all().columns.names();
    };
    const std::vector<std::string> before = columns();
    hospital.runAsAdministrator("ALTER TABLE Patient_Data_tbHospitalInfo ADD COLUMN Motto TEXT");
    const std::vector<std::string> after = columns();
    ASSERT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after.back(), "Motto");
}

} // namespace
