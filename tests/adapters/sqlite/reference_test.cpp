// The reference files are long enough to need searching, and fit together.
#include "adapters/sqlite/hospital.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

using namespace opd;
using namespace opd::tests;

namespace {

class ReferenceFiles : public testing::Test {
  protected:
    EmbeddedHospital hospital{12};
    std::unique_ptr<ado::Connection> connection = hospital.connect();

    std::vector<std::string> rows(const std::string& what) { return rowsOf(*connection, "Select " + what); }
};

TEST_F(ReferenceFiles, AreLongEnoughToNeedSearchingAndNameEachThingOnce) {
    const struct {
        const char* what;
        std::size_t atLeast;
    } lists[] = {
        {"Town, Province from Build_File..tbCoAddress", 1500},
        {"Barangay from Build_File..tbCoBarangay", 2000},
        {"LastName, FirstName, MiddleName from Build_File..tbCoDoctor", 300},
        {"Service from Build_File..tbCoService", 60},
        {"Allergy from Build_File..tbCoAllergy", 200},
        {"ChiefComplaint from Build_File..tbCoChiefComplaint", 1000},
        {"Company from Build_File..tbCoCompany where Class = 'H'", 20},
        {"Company from Build_File..tbCoCompany where Class = 'S'", 10},
        {"Company from Build_File..tbCoCompany where Class = 'C'", 200},
        {"PayCode from Build_File..tbCoPayCode where Status = 'A'", 10},
        {"PayCode from Build_File..tbCoPayCode where Status <> 'A'", 1},
        {"AdmissionType from Build_File..tbCoAdmissionType", 10},
        {"Nationality from Build_File..tbCoNationality", 40},
        {"Religion from Build_File..tbCoReligion", 25},
        {"OtherRevenue from Build_File..tbCoOtherRevenue where SectionID = 'AA'", 90},
        {"OtherRevenue from Build_File..tbCoOtherRevenue where SectionID <> 'AA'", 15},
    };
    for (const auto& [what, atLeast] : lists) {
        std::set<std::string> seen;
        for (const std::string& name : rows(what)) {
            EXPECT_TRUE(seen.insert(name).second) << what << ": " << name << " again";
            EXPECT_NE(name.front(), '|') << what << ": a name is missing";
            EXPECT_EQ(name.find_first_of("'\r\n"), std::string::npos) << what << ": " << name;
        }
        EXPECT_GE(seen.size(), atLeast) << what;
    }
}

TEST_F(ReferenceFiles, GiveEveryDoctorServicesThatExistAndDaysOfTheWeek) {
    const auto services = rows("ServiceID from Build_File..tbCoService");
    std::size_t severalServices = 0;
    for (const char* place : {"ServiceID1", "ServiceID2", "ServiceID3"}) {
        const auto used = rows(std::string{place} + " from Build_File..tbCoDoctor where " + place + " <> ''");
        EXPECT_GT(used.size(), 20U) << place;
        for (const std::string& service : used)
            EXPECT_NE(std::find(services.begin(), services.end(), service), services.end()) << service;
        severalServices += used.size();
    }
    EXPECT_GT(severalServices, 400U);
    EXPECT_EQ(rows("DoctorID from Build_File..tbCoDoctor where ServiceID1 = ''").size(), 0U);
    for (const std::string& days : rows("DutyDays from Build_File..tbCoDoctor")) {
        EXPECT_FALSE(days.empty());
        EXPECT_EQ(days.find_first_not_of("0123456"), std::string::npos) << days;
        EXPECT_EQ(std::set<char>(days.begin(), days.end()).size(), days.size()) << days;
    }
}

} // namespace
