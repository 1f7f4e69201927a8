// What lookups and checks answer: their columns, what they find, and in which order.
#include "contract/contract.h"

#include <algorithm>

namespace opd::tests {
namespace {

using Rows = std::vector<std::string>;

/// One column of rows.
Rows column(const Rows& rows, int wanted) {
    Rows cells;
    for (const std::string& row : rows) {
        std::size_t start = 0;
        for (int i = 0; i < wanted; ++i)
            start = row.find('|', start) + 1;
        cells.push_back(row.substr(start, row.find('|', start) - start));
    }
    return cells;
}

Rows sorted(Rows rows) {
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::string doctors(const std::string& service, const std::string& text, char mode) {
    return "BUILD_FILE..sp_Bui_Search_Doctor '" + service + "', '" + text + "','','" + mode + "'";
}

TEST_P(Contract, LooksUpWhatIsMeant) {
    const std::string barangays = "Patient_Data..sp_Adm_SearchBarangay '";
    const std::string classes = "PATIENT_DATA..sp_Adm_SearchAdmissionType '";
    const std::string complaints = "PATIENT_DATA..sp_AOPD_SearchChiefComplaint '";
    const std::string today = "Patient_Data..sp_aopd_Check_if_admitted_today '";
    const std::string openVisit =
        "Select IDNum from Patient_Data..tbOutPatient where BillingDate is null and dcrDate is "
        "null and OPDStatus <> 'R' and Hospnum = '";
    const auto ofDay = [](const std::string& day, const std::string& next) {
        return "Select v.IDNum, m.LastName, s.Service, d.LastName as Doctor from Patient_Data..tbOutPatient v "
               "inner join Patient_Data..tbMaster m on m.HospNum = v.HospNum "
               "left join Build_File..tbCoService s on s.ServiceID = v.ServiceID1 "
               "left join Build_File..tbCoDoctor d on d.DoctorID = v.DoctorID1 "
               "where v.AdmDate >= '" +
               day + "' and v.AdmDate < '" + next + "' and v.OPDStatus <> 'R' order by v.AdmDate desc, v.IDNum desc";
    };
    const Rows maria{"TORRES, MARIA LUZ, AVILA|D001"};
    const std::string similar = "PATIENT_DATA..sp_AOPD_SearchSimilarRecords 'dela cruz','JUAN',";
    const std::string age = ageOf({1980, 3, 7}), otherAge = ageOf({1981, 3, 7});
    const struct {
        std::string statement;
        Rows found;
    } cases[] = {
        {barangays + "stn01 '", {"SANTO NIÑO|STN01"}}, // a code is found alone
        {barangays + "bag'", {"BAGONG BARRIO|BAG03", "BAGONG SILANG|BAG01", "BAGUMBAYAN|BAG02"}},
        {barangays + "nino lum'", {"SANTO NIÑO LUMA|STN15"}},
        {barangays + "%'", {}}, // characters, not wildcards
        {barangays + "BAG_'", {}},
        {classes + "1'", {"PAY|1"}}, // and not 10 to 13
        {classes + "dige'", {"INDIGENT|4"}},
        {complaints + "cc015'", {"CC015|TOOTHACHE|TEETH"}},
        {complaints + "oothac'", {"CC015|TOOTHACHE|TEETH"}},
        {complaints + "[T]OOTHACHE'", {}},
        {"Patient_Data..sp_AOPD_SearchChiefComplaintID 'cc015'", {"CC015|TOOTHACHE"}},
        {"Patient_Data..sp_AOPD_SearchChiefComplaintID 'CC01'", {}},
        {"Build_File..global_SearchBarangay 'bag02 ','1'", {"BAG02|BAGUMBAYAN"}},
        {"Build_File..global_SearchBarangay 'BAG','1'", {}},
        {"Patient_Data..sp_Adm_LoadAllergy 'a01'", {"A01|PENICILLIN"}},
        {"Patient_Data..sp_Adm_LoadAllergy ''", {}},
        {"Patient_Data..sp_Adm_LoadDoctor 'D302'", {"D302|CARPIO|EMMANUEL|"}},
        {"Patient_Data..sp_Adm_LoadService '2'", {"2|SURGERY"}},
        {"Patient_Data..sp_Adm_LoadService '20000'", {}},
        {"Patient_Data..SP_AOPD_CheckCompanyAccount 'HMO-01'", {"HMO-01"}},
        {"Patient_Data..SP_AOPD_CheckCompanyAccount 'COM-01'", {}}, // neither insurance nor health plan
        {doctors("2", "d001 ", '7'), maria},
        {doctors("", "D001", '7'), maria},
        {doctors("63", "D001", '7'), {}}, // a service she does not work for
        {doctors("", "D00", '7'), {}},
        {doctors("", "TORRES", '7'), {}},
        {doctors("2", "", '7'), {}},
        {doctors("", "D302", '7'), {"CARPIO, EMMANUEL|D302"}}, // no middle name, no second comma
        {doctors("", "torres, maria l", '6'), maria},
        {doctors("", "no such name", '6'), {}},
        {similar + age, {"00000001"}},
        {similar + otherAge, {}},
        {"PATIENT_DATA..sp_AOPD_CheckIfAdmitted '00000007'", {"50001"}},
        {"PATIENT_DATA..sp_AOPD_CheckIfAdmitted '00000001'", {}},
        {"Patient_Data..sp_AOPD_CheckPatientsMasterAccount '00000010'", {"00000010"}},
        {"Patient_Data..sp_AOPD_CheckPatientsMasterAccount '00000001'", {}},
        {today + "00000002', '06/29/2026'", {"2600000001B"}},
        {today + "00000002', '06/30/2026'", {}},
        {today + "00000006', '06/12/2026'", {}}, // revoked
        {today + "00000007', '06/28/2026'", {"50001"}},
        {today + "00000007', '06/29/2026'", {}},
        {ofDay("06/29/2026", "06/30/2026"), {"2600000001B|SANTOS|CARDIOLOGY|TORRES"}},
        {ofDay("06/30/2026", "07/01/2026"), {}},
        {openVisit + "00000002' order by admdate desc", {"2600000001B"}},
        {openVisit + "00000006' order by admdate desc", {}},
    };
    for (const auto& [statement, found] : cases)
        EXPECT_EQ(rows(statement), found) << statement;
}

TEST_P(Contract, ListsTheDoctorsOfAServiceBeforeTheOthers) {
    const Rows all = rows(doctors("61", "", '6'));
    EXPECT_EQ(Rows(all.begin(), all.begin() + 2), (Rows{"CARPIO, EMMANUEL|D302", "HERNANDEZ, NICOLE, CHUA|D301"}));
    if (!hospital->isReal()) { // whose collation decides where blanks and hyphens come
        EXPECT_TRUE(std::is_sorted(all.begin() + 2, all.end()));
    }
    EXPECT_EQ(sorted(all), sorted(rows(doctors("", "", '6')))) << "the service decides the order alone";
}

TEST_P(Contract, NamesWhoIsOnDutyForAServiceToday) {
    const Rows ofPains[] = {{"D301"}, {"D301"}, {"D302"}, {"D301"}, {"D302"}, {"D301"}, {"D302"}}; // from Sunday on
    for (int day = 0; day < 7; ++day) { // which a server does not heed: it has its own day
        hospital->setClock({2026, 7, 1 + day, 23, 59, 59});
        const auto weekday = static_cast<std::size_t>(daysBetween({1900, 1, 7}, now()) % 7);
        EXPECT_EQ(column(rows(doctors("61", "", '5')), 1), ofPains[weekday]) << "weekday " << weekday;
    }
    EXPECT_EQ(column(rows(doctors("62", "D001", '5')), 1), (Rows{"D304", "D303"})) << "the text plays no part";
    for (const char* service : {"63", ""})
        EXPECT_EQ(rows(doctors(service, "", '5')), Rows{}) << service;
}

TEST_P(Contract, NamesTheLeastConsultedDoctorOfAServiceFirst) {
    const auto found = [&](const std::string& arguments) {
        return rows("Build_File..global_SearchDoctor_By_Specialization " + arguments);
    };
    EXPECT_EQ(found("'62',0"), (Rows{"MENDOZA, JUAN CARLOS, CAMACHO|D303|SLEEP MEDICINE|PULMONOLOGY|",
                                     "ESPIRITU, LETICIA, CATACUTAN|D304|SLEEP MEDICINE|NEUROLOGY|PSYCHIATRY"}));
    for (int visits = 0; visits < 5; ++visits)
        connection->Execute("Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'D303'");
    EXPECT_EQ(column(found("'62',0"), 1), (Rows{"D304", "D303"})) << "consulted more often since";
    for (const char* nobody : {"'63',0", "'',0"})
        EXPECT_EQ(found(nobody), Rows{}) << nobody;
    EXPECT_EQ(found("'63',1").size(), 320U);
}

} // namespace
} // namespace opd::tests
