// A generated hospital depends on its options and on nothing else, and fits together.
#include "adapters/sqlite/hospital.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

using namespace opd;
using namespace opd::tests;
using adapters::sqlite::createDatabase;
using adapters::sqlite::DatabaseOptions;

namespace {

TEST(Generator, GivesTheSameFileForTheSameOptionsAndOthersForAnotherSeedOrDay) {
    const TemporaryFolder folder;
    const auto make = [&](const char* name, unsigned seed, const DateTime& day = generationDay) {
        DatabaseOptions options;
        options.patients = 200;
        options.seed = seed;
        options.now = day;
        createDatabase(folder / name, options, {});
        return contentOf(folder / name / "hospital.db");
    };
    const std::string one = make("one", 7);
    EXPECT_TRUE(one == make("again", 7));
    EXPECT_FALSE(one == make("other", 8));
    EXPECT_FALSE(one == make("later", 7, {2031, 9, 1, 0, 0, 0}));
}

TEST(Generator, UsesOnlyCodesThatTheReferenceFilesHave) {
    EmbeddedHospital hospital(600);
    const auto connection = hospital.connect();
    const struct {
        const char* used;
        const char* file;
    } references[] = {
        {"Select ZipCode from Patient_Data..tbMaster", "Select ZipCode from Build_File..tbCoAddress"},
        {"Select NationalityID from Patient_Data..tbMaster2", "Select NationalityID from Build_File..tbCoNationality"},
        {"Select ReligionID from Patient_Data..tbMaster2", "Select ReligionID from Build_File..tbCoReligion"},
        {"Select ServiceID1 from Patient_Data..tbOutPatient", "Select ServiceID from Build_File..tbCoService"},
        {"Select DoctorID1 from Patient_Data..tbOutPatient", "Select DoctorID from Build_File..tbCoDoctor"},
        {"Select ServiceID1 from Build_File..tbCoDoctor", "Select ServiceID from Build_File..tbCoService"},
        {"Select ServiceID3 from Build_File..tbCoDoctor where ServiceID3 <> ''",
         "Select ServiceID from Build_File..tbCoService"},
        {"Select HospNum from Patient_Data..tbOutPatient", "Select HospNum from Patient_Data..tbMaster"},
        {"Select HospNum from Patient_Data..tbPatient", "Select HospNum from Patient_Data..tbMaster"},
    };
    for (const auto& [used, file] : references) {
        const auto known = rowsOf(*connection, file);
        const auto codes = rowsOf(*connection, used);
        EXPECT_FALSE(codes.empty()) << used;
        for (const std::string& code : std::set<std::string>(codes.begin(), codes.end()))
            EXPECT_NE(std::find(known.begin(), known.end(), code), known.end()) << used << ": " << code;
    }
}

TEST(Generator, MakesListsThatNeedSearchingNameEachThingOnceAndPutDoctorsOnDuty) {
    EmbeddedHospital hospital;
    const auto connection = hospital.connect();
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
        for (const std::string& name : rowsOf(*connection, std::string{"Select "} + what)) {
            EXPECT_TRUE(seen.insert(name).second) << what << ": " << name << " again";
            EXPECT_NE(name.front(), '|') << what << ": a name is missing";
            EXPECT_EQ(name.find_first_of("'\r\n"), std::string::npos) << what << ": " << name;
        }
        EXPECT_GE(seen.size(), atLeast) << what;
    }
    for (const std::string& days : rowsOf(*connection, "Select DutyDays from Build_File..tbCoDoctor")) {
        EXPECT_FALSE(days.empty());
        EXPECT_EQ(days.find_first_not_of("0123456"), std::string::npos) << days;
        EXPECT_EQ(std::set<char>(days.begin(), days.end()).size(), days.size()) << days;
    }
}

TEST(Generator, TellsItsProgressAndLeavesOneWholeFileOrNone) {
    const TemporaryFolder folder;
    DatabaseOptions options;
    options.patients = 250;
    int last = 0;
    EXPECT_THROW(createDatabase(folder.path(), options, [](int, int) { throw std::runtime_error("stop"); }),
                 std::runtime_error);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    createDatabase(folder.path(), options, [&](int done, int total) {
        EXPECT_EQ(total, 250);
        EXPECT_GT(done, last);
        last = done;
    });
    EXPECT_EQ(last, 250);
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        EXPECT_EQ(entry.path().filename(), "hospital.db");
}

} // namespace
