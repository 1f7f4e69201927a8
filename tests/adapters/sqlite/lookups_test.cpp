// What the lookups of coded fields answer: their columns, what they find, and in which order.
#include "adapters/sqlite/hospital.h"
#include "support/sql.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace opd;
using namespace opd::tests;
using Rows = std::vector<std::string>;

namespace {

class Lookups : public testing::Test {
  protected:
    EmbeddedHospital hospital{12};
    std::unique_ptr<ado::Connection> connection = hospital.connect();

    Rows rows(const std::string& statement) { return rowsOf(*connection, statement); }

    Rows doctors(const std::string& service, const std::string& text, char mode) {
        return rows("BUILD_FILE..sp_Bui_Search_Doctor '" + service + "', '" + text + "','','" + mode + "'");
    }

    Rows doctorsByConsultations(const std::string& arguments) {
        return rows("Build_File..global_SearchDoctor_By_Specialization " + arguments);
    }

    /// The codes of the doctors that have a service among their specializations.
    Rows staffOf(const std::string& service) {
        Rows staff;
        for (const char* place : {"ServiceID1", "ServiceID2", "ServiceID3"})
            for (const std::string& code : rows(std::string{"Select DoctorID from Build_File..tbCoDoctor where "} +
                                                place + " = '" + service + "'"))
                staff.push_back(code);
        std::sort(staff.begin(), staff.end());
        return staff;
    }
};

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

TEST_F(Lookups, GiveTheColumnsThatTheirListsShow) {
    const struct {
        const char* statement;
        Rows columns;
    } cases[] = {
        {"BUILD_FILE..sp_Bui_Search_Doctor '', 'D001','','7'", {"Description", "Code"}},
        {"Patient_Data..sp_Adm_SearchBarangay 'BAG01'", {"Description", "Code"}},
        {"PATIENT_DATA..sp_Adm_SearchAdmissionType '1'", {"Description", "Code"}},
        {"PATIENT_DATA..sp_AOPD_SearchChiefComplaint 'CC001'", {"ChiefComplaintID", "ChiefComplaint", "BodySystem"}},
        {"Build_File..global_SearchDoctor_By_Specialization '1',0",
         {"Doctor", "DoctorID", "Specialization1", "Specialization2", "Specialization3"}},
    };
    for (const auto& [statement, columns] : cases)
        EXPECT_EQ(connection->Execute(sql(statement)).all().columns, columns) << statement;
}

TEST_F(Lookups, TakeAnExactCodeAloneAndElseWhatContainsTheText) {
    const std::string barangays = "Patient_Data..sp_Adm_SearchBarangay '";
    const std::string classes = "PATIENT_DATA..sp_Adm_SearchAdmissionType '";
    const std::string complaints = "PATIENT_DATA..sp_AOPD_SearchChiefComplaint '";
    const struct {
        std::string statement;
        Rows found;
    } cases[] = {
        {barangays + "STN01'", {"SANTO NIÑO|STN01"}},
        {barangays + "stn01 '", {"SANTO NIÑO|STN01"}},
        {barangays + "bag'", {"BAGONG BARRIO|BAG03", "BAGONG SILANG|BAG01", "BAGUMBAYAN|BAG02"}},
        {barangays + "niño lum'", {"SANTO NIÑO LUMA|STN15"}},
        {barangays + "nino lum'", {"SANTO NIÑO LUMA|STN15"}},
        {barangays + "%'", {}}, // characters, not wildcards
        {barangays + "BAG_'", {}},
        {barangays + "no such place'", {}},
        {classes + "1'", {"PAY|1"}}, // and not 10 to 13
        {classes + "dige'", {"INDIGENT|4"}},
        {classes + "no such class'", {}},
        {complaints + "cc015'", {"CC015|TOOTHACHE|TEETH"}},
        {complaints + "oothac'", {"CC015|TOOTHACHE|TEETH"}},
        {complaints + "TOOTH%ACHE'", {}},
        {complaints + "[T]OOTHACHE'", {}},
        {complaints + "no such complaint'", {}},
    };
    for (const auto& [statement, found] : cases)
        EXPECT_EQ(rows(statement), found) << statement;
}

TEST_F(Lookups, ListEverythingInOrderForAnEmptyText) {
    const struct {
        const char* statement;
        const char* file;
        int orderedBy;
    } cases[] = {
        {"Patient_Data..sp_Adm_SearchBarangay ''", "Select BarangayID from Build_File..tbCoBarangay", 0},
        {"PATIENT_DATA..sp_Adm_SearchAdmissionType ''", "Select AdmissionTypeID from Build_File..tbCoAdmissionType", 0},
        {"PATIENT_DATA..sp_AOPD_SearchChiefComplaint ''", "Select ChiefComplaintID from Build_File..tbCoChiefComplaint",
         1},
        {"BUILD_FILE..sp_Bui_Search_Doctor '', '','','6'", "Select DoctorID from Build_File..tbCoDoctor", 0},
    };
    for (const auto& [statement, file, orderedBy] : cases) {
        const Rows found = rows(statement);
        EXPECT_EQ(found.size(), rows(file).size()) << statement;
        const Rows names = column(found, orderedBy);
        EXPECT_TRUE(std::is_sorted(names.begin(), names.end())) << statement;
    }
}

TEST_F(Lookups, FindADoctorByTheExactCodeWithinTheService) {
    const Rows maria{"TORRES, MARIA LUZ, AVILA|D001"};
    ASSERT_EQ(rows("Select ServiceID1 from Build_File..tbCoDoctor where DoctorID = 'D001'"), Rows{"2"});
    EXPECT_EQ(doctors("", "D001", '7'), maria);
    EXPECT_EQ(doctors("", "d001 ", '7'), maria);
    EXPECT_EQ(doctors("2", "D001", '7'), maria);
    EXPECT_EQ(doctors("63", "D001", '7'), Rows{}) << "a service she does not work for";
    EXPECT_EQ(doctors("", "D00", '7'), Rows{});
    EXPECT_EQ(doctors("", "TORRES", '7'), Rows{});
    EXPECT_EQ(doctors("2", "", '7'), Rows{});
    EXPECT_EQ(doctors("", "D302", '7'), Rows{"CARPIO, EMMANUEL|D302"}) << "no middle name, no second comma";
}

TEST_F(Lookups, ListDoctorsByPartOfCodeOrNameThoseOfTheServiceFirst) {
    EXPECT_EQ(doctors("", "torres, maria l", '6'), Rows{"TORRES, MARIA LUZ, AVILA|D001"});
    EXPECT_EQ(column(doctors("", "D30", '6'), 1).size(), 10U);
    EXPECT_EQ(doctors("", "no such name", '6'), Rows{});
    const Rows all = doctors("61", "", '6');
    EXPECT_EQ(Rows(all.begin(), all.begin() + 2), (Rows{"CARPIO, EMMANUEL|D302", "HERNANDEZ, NICOLE, CHUA|D301"}));
    EXPECT_TRUE(std::is_sorted(all.begin() + 2, all.end()));
    EXPECT_EQ(sorted(all), sorted(doctors("", "", '6'))) << "the service decides the order alone";
}

TEST_F(Lookups, NameWhoIsOnDutyForAServiceToday) {
    // Wednesday 1 July 2026 and the six days behind it.
    const Rows ofPains[] = {{"D301"}, {"D302"}, {"D301"}, {"D302"}, {"D301"}, {"D301"}, {"D302"}};
    for (int day = 0; day < 7; ++day) {
        hospital.clock().moment = {2026, 7, 1 + day, 23, 59, 59};
        EXPECT_EQ(column(doctors("61", "", '5'), 1), ofPains[day]) << "day " << day;
        EXPECT_EQ(column(doctors("62", "D001", '5'), 1), (Rows{"D304", "D303"})) << "the text plays no part";
        EXPECT_EQ(doctors("63", "", '5'), Rows{});
        EXPECT_EQ(doctors("", "", '5'), Rows{}) << "nobody is on duty for no service";
    }
}

TEST_F(Lookups, PickTheLeastConsultedDoctorOfAServiceFirst) {
    for (const char* service : {"1", "9", "14", "16", "61"}) {
        const Rows found = doctorsByConsultations("'" + std::string{service} + "',0");
        EXPECT_EQ(sorted(column(found, 1)), staffOf(service)) << service;
        int last = -1;
        for (const std::string& code : column(found, 1)) {
            const int consultations = std::stoi(
                rows("Select Consultations from Build_File..tbCoDoctor where DoctorID = '" + code + "'").front());
            EXPECT_GE(consultations, last) << service << ": " << code;
            last = consultations;
        }
    }
    EXPECT_EQ(doctorsByConsultations("'62',0"),
              (Rows{"MENDOZA, JUAN CARLOS, CAMACHO|D303|SLEEP MEDICINE|PULMONOLOGY|",
                    "ESPIRITU, LETICIA, CATACUTAN|D304|SLEEP MEDICINE|NEUROLOGY|PSYCHIATRY"}));
    for (int visits = 0; visits < 5; ++visits)
        connection->Execute("Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation 'D303'");
    EXPECT_EQ(column(doctorsByConsultations("'62',0"), 1), (Rows{"D304", "D303"})) << "consulted more often since";
    EXPECT_EQ(doctorsByConsultations("'63',0"), Rows{});
    EXPECT_EQ(doctorsByConsultations("'',0"), Rows{});
    EXPECT_EQ(doctorsByConsultations("'',1").size(), 320U);
    EXPECT_EQ(doctorsByConsultations("'63',1").size(), 320U);
}

} // namespace
