// The shapes of statements that the embedded database takes, and what it refuses.
#include "adapters/sqlite/hospital.h"

#include <gtest/gtest.h>

using namespace opd;
using namespace opd::tests;

namespace {

TEST(Statements, AreTakenInTheShapesOfTheDesk) {
    EmbeddedHospital hospital;
    const auto connection = hospital.connect();
    for (const char* statement : {
             "select GETDATE() AS Tdate",
             "Select GetDate() As CurDate from patient_Data..tbHospitalInfo",
             "select * from Patient_Data..tbHospitalInfo",
             "Select top 1 isnull(ClientName,'') as ClientName from Patient_Data..tbHospitalInfo",
             "Select top 1 isnull(IsHMORate,0)isHMORate from Patient_Data..tbHospitalInfo",
             "Select hospnum from Patient_Data..tbMaster Where Lastname like 'D%' and BirthDate = '03/07/1980'",
             "Select BillingDate from Patient_Data..tbOutPatient where IDNum = ''",
             "Select PaycodeID, Paycode from Build_File..tbcoPaycode where Status ='A'",
             "Select * From Build_File..tbCoCompany Where AccountNum = 'x'",
             "  update Patient_Data..tbOutpatient set opdstatus = 'R' where idnum = 'none'",
             "Delete Patient_Data..tbMasterDependent where SeqNum = 'none'",
             "Delete from Patient_Data..tbMasterDependent where SeqNum = 'none'",
             "billing..sp_OPD_ComputeHospitalBill'X'",
             "Patient_Data..sp_aopd_Check_if_admitted_today   '1'  ,   '07/01/2026'  ",
             "Build_file..global_SearchBarangay 'x','0'",
             "Patient_Data..sp_Adm_SearchBarangay 'x'",
             "PATIENT_DATA..sp_Adm_SearchAdmissionType ''",
             "PATIENT_DATA..sp_AOPD_SearchChiefComplaint 'x'",
         })
        EXPECT_EQ(errorOf(*connection, statement), "") << statement;
}

TEST(Statements, AreRefusedInEveryOtherShapeAndChangeNothing) {
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

} // namespace
