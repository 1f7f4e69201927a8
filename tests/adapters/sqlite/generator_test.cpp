// A generated hospital depends on its options and on nothing else.
#include "adapters/sqlite/hospital.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

using namespace opd;
using namespace opd::tests;
using adapters::sqlite::createDatabase;
using adapters::sqlite::DatabaseOptions;

namespace {

/// All rows of all tables, as one text.
std::string dumpOf(const std::filesystem::path& folder) {
    const FixedClock clock(morning);
    ado::Providers providers;
    providers.add("embedded", adapters::sqlite::makeSqliteProvider(clock));
    ado::Connection connection(providers);
    connection.Open("Data Source=" + folder.string());
    std::string dump;
    for (const char* table : {"tbMaster", "tbMaster2", "tbOutPatient", "tbPatient", "tbCounter", "tbHospitalInfo",
                              "tbMasterAccount", "tbMasterDependent"})
        for (const std::string& row : rowsOf(connection, std::string{"select * from Patient_Data.."} + table))
            dump += table + (": " + row + "\n");
    for (const char* table : {"tbCoAddress", "tbCoDoctor", "tbCoCompany", "tbCoBarangay"})
        for (const std::string& row : rowsOf(connection, std::string{"select * from Build_File.."} + table))
            dump += table + (": " + row + "\n");
    return dump;
}

TEST(Generator, GivesTheSameRowsForTheSameOptionsAndOthersForAnotherSeedOrDay) {
    const TemporaryFolder folder;
    const auto make = [&](const char* name, unsigned seed, const DateTime& day = generationDay) {
        DatabaseOptions options;
        options.patients = 200;
        options.seed = seed;
        options.now = day;
        createDatabase(folder.path() / name, options, {});
        return dumpOf(folder.path() / name);
    };
    const std::string one = make("one", 7);
    EXPECT_GT(std::count(one.begin(), one.end(), '\n'), 400);
    EXPECT_EQ(one, make("again", 7));
    EXPECT_NE(one, make("other", 8));
    EXPECT_NE(one, make("later", 7, {2031, 9, 1, 0, 0, 0}));
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
