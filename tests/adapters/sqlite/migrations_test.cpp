// Hospitals that older versions of this program left are brought to this one's, or stay as they are.
#include "adapters/sqlite/hospital.h"
#include "adapters/sqlite/migrations.h"
#include "contract/save_statements.h"
#include "support/sql.h"

#include <csignal>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace opd;
using namespace opd::tests;
using adapters::sqlite::Database;
using adapters::sqlite::Query;

namespace {

const FixedClock clockOfTest{morning};
constexpr const char* patients = "SELECT HospNum, LastName, FirstName, MiddleName, BirthDate, telnum, PHICNum, FileNum "
                                 "FROM Patient_Data_tbMaster ORDER BY HospNum";
constexpr const char* visits = "SELECT * FROM Patient_Data_tbOutPatient ORDER BY IDNum";

std::vector<std::string> rowsIn(const std::filesystem::path& file, const char* sql) {
    const Database database(file, Database::Mode::Existing, clockOfTest);
    std::vector<std::string> rows;
    for (Query query(database, sql); query.next();) {
        std::string& row = rows.emplace_back();
        for (int column = 0; column < query.columnCount(); ++column)
            row += query.value(column).asText() + "|";
    }
    return rows;
}

/// What a file declares, without the remarks and line breaks of those who wrote it.
std::vector<std::string> schemaOf(const std::filesystem::path& file) {
    std::vector<std::string> schema;
    for (const std::string& sql : rowsIn(file, "SELECT sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite_%' ORDER BY "
                                               "name"))
        schema.push_back(std::regex_replace(std::regex_replace(sql, std::regex("--[^\n]*"), ""),
                                            std::regex("IF NOT EXISTS|[\\s\"]+"), ""));
    return schema;
}

/// A hospital as an older version left it.
class OldHospital final : public EmbeddedHospital {
  public:
    explicit OldHospital(int version)
        : EmbeddedHospital(std::filesystem::path{OPD_OLD_HOSPITALS} / ("version-" + std::to_string(version) + ".sql")) {
    }

    std::filesystem::path copy(const std::string& version) const { return file().string() + ".version-" + version; }

    /// Opens it in a process of its own, which may be killed.
    pid_t openElsewhere(const std::function<void()>& before = {}) {
        const pid_t child = fork();
        if (child != 0)
            return child;
        try {
            if (before)
                before();
            connect();
        } catch (const std::exception& failure) {
            _exit(std::string{failure.what()}.find("it is as it was") != std::string::npos ? 2 : 1);
        }
        _exit(0);
    }
};

int statusOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// True when every row begins as it did; a step may have added columns.
bool keepsRows(const std::vector<std::string>& rows, const std::vector<std::string>& before) {
    return std::ranges::equal(rows, before,
                              [](const std::string& row, const std::string& old) { return row.starts_with(old); });
}

TEST(Migrations, TakeAHospitalThroughEveryStepAndItIsWorkedWith) {
    const EmbeddedHospital fresh;
    for (const int version : {1, 2}) {
        OldHospital hospital(version);
        const auto oldSchema = schemaOf(hospital.file()), oldPatients = rowsIn(hospital.file(), patients),
                   oldVisits = rowsIn(hospital.file(), visits);
        std::filesystem::permissions(hospital.file(), std::filesystem::perms{0640});

        const auto desk = hospital.connect();
        EXPECT_TRUE(schemaOf(hospital.file()) == schemaOf(fresh.file()))
            << "a change of schema.sql lacks its migration";
        EXPECT_TRUE(keepsRows(rowsIn(hospital.file(), patients), oldPatients));
        EXPECT_TRUE(keepsRows(rowsIn(hospital.file(), visits), oldVisits));
        EXPECT_EQ(rowsIn(hospital.file(), "PRAGMA integrity_check"), std::vector<std::string>{"ok|"});
        const auto copy = hospital.copy(std::to_string(version));
        EXPECT_EQ(rowsIn(copy, "PRAGMA user_version"), std::vector<std::string>{std::to_string(version) + "|"});
        EXPECT_EQ(schemaOf(copy), oldSchema);
        EXPECT_EQ(rowsIn(copy, patients), oldPatients);
        EXPECT_EQ(modeOf(copy), 0640U);

        const auto found = [&](const std::string& search) {
            return desk->Execute(sql("Patient_Data..sp_Adm_MasterPatientSearch" + search)).Fields("HospNum").asText();
        };
        EXPECT_EQ(found("New '990000000011','1'"), "00000013") << "a number without its hyphens";
        EXPECT_EQ(found(" 'OBRIEN, JOSE','','','M','','1971.05.05',0,0"), "00000013");
        EXPECT_EQ(rowsOf(*desk, "Build_File..global_SearchDoctor_By_Specialization '5',0"),
                  std::vector<std::string>{"LUNA, AMADA|OWN1|ENT||"});
        const std::string number = newHospNum(*desk), visit = newOpdNumber(*desk) + "B";
        EXPECT_EQ(number, "00000014");
        desk->Execute(sql(callOf("sp_aopd_Update_TbMaster", masterValues(number, visit))));
        desk->Execute(sql(callOf("sp_aopd_Update_tbOutpatient", visitValues(number, visit))));
        desk->Execute(sql("Patient_data..OPD_UpdateFileNum '" + number + "'"));
        EXPECT_EQ(
            rowsOf(*hospital.connect(), "Select FileNum from Patient_Data..tbMaster where HospNum = '" + number + "'"),
            std::vector<std::string>{"2"});
        EXPECT_FALSE(std::filesystem::exists(copy.string() + ".2")) << "it was copied once";
    }
}

TEST(Migrations, ThatFailLeaveTheOldHospitalAndNoCopy) {
    OldHospital hospital(1);
    const auto expectAsItWas = [&](const std::vector<std::string>& before, const std::function<void()>& circumstance) {
        EXPECT_EQ(statusOf(hospital.openElsewhere(circumstance)), 2);
        EXPECT_EQ(schemaOf(hospital.file()), before);
        EXPECT_EQ(rowsIn(hospital.file(), "PRAGMA user_version").front(), "1|");
        EXPECT_FALSE(std::filesystem::exists(hospital.copy("1")));
    };
    expectAsItWas(schemaOf(hospital.file()), [&] { // a disk without room for the copy
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{std::filesystem::file_size(hospital.file()) / 2, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &full);
    });
    hospital.runAsAdministrator("CREATE TABLE NewMaster (Remark TEXT)"); // a name that the second step needs
    expectAsItWas(schemaOf(hospital.file()), {});
    hospital.runAsAdministrator("DROP TABLE NewMaster");
    EXPECT_EQ(statusOf(hospital.openElsewhere()), 0);
}

TEST(Migrations, SurviveKillsAndSeveralDesksThatStartAtOnce) {
    for (const useconds_t microseconds : {2000U, 5000U, 9000U, 14000U, 20000U}) {
        OldHospital hospital(1);
        const pid_t killed = hospital.openElsewhere();
        usleep(microseconds);
        kill(killed, SIGKILL);
        statusOf(killed);
        const auto oldPatients = rowsIn(hospital.file(), patients);
        const pid_t desks[] = {hospital.openElsewhere(), hospital.openElsewhere(), hospital.openElsewhere()};
        for (const pid_t desk : desks)
            EXPECT_EQ(statusOf(desk), 0);
        EXPECT_EQ(rowsIn(hospital.file(), "PRAGMA user_version").front(),
                  std::to_string(adapters::sqlite::schemaVersion()) + "|");
        EXPECT_EQ(rowsIn(hospital.file(), patients), oldPatients);
        EXPECT_EQ(rowsIn(hospital.copy("1"), patients), oldPatients);
        for (const auto& entry : std::filesystem::directory_iterator(hospital.folder()))
            EXPECT_EQ(entry.path().string().find("unfinished"), std::string::npos) << entry.path();
    }
}

} // namespace
