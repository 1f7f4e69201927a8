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

TEST(Statements, ThatAreKeptFollowATableThatHasChanged) {
    EmbeddedHospital hospital;
    const auto connection = hospital.connect();
    const auto columns = [&] {
        return connection->Execute("select * from Patient_Data..tbHospitalInfo").all().columns;
    };
    const std::vector<std::string> before = columns();
    hospital.runAsAdministrator("ALTER TABLE Patient_Data_tbHospitalInfo ADD COLUMN Motto TEXT");
    const std::vector<std::string> after = columns();
    ASSERT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after.back(), "Motto");
}

} // namespace
