// Scripts are sent as they are parted by GO, and generated patients as statements that a server can take.
#include "ado/error.h"
#include "setup/insert_statements.h"
#include "setup/script_batches.h"
#include "setup/server_scripts.h"
#include "setup/server_setup.h"
#include "support/recording_provider.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

using namespace opd;
using namespace opd::setup;

namespace {

/// The batches as "line:text" with their line breaks as "/", parted by "|".
std::string parted(std::string_view script) {
    std::string all;
    for (const Batch& batch : batchesOf(script)) {
        std::string text = batch.text;
        std::replace(text.begin(), text.end(), '\n', '/');
        all += (all.empty() ? "" : "|") + std::to_string(batch.line) + ":" + text;
    }
    return all;
}

TEST(Scripts, ArePartedWhereALineSaysGoAndNothingElse) {
    const struct {
        const char* script;
        const char* batches;
    } cases[] = {
        {"", ""},
        {"SELECT 1", "1:SELECT 1/"},
        {"SELECT 1\nGO\nSELECT 2\nGO\n", "1:SELECT 1/|3:SELECT 2/"},
        {"SELECT 1\r\n  go \t\r\nSELECT 2\r\nGO -- done\r\n", "1:SELECT 1\r/|3:SELECT 2\r/"},
        {"GO\n\nGO\n-- a remark\nGO\n/* another\nGO\n*/\nGO\nSELECT 1", "10:SELECT 1/"},
        {"SELECT 'a\nGO\nb'\nGO\nSELECT 2", "1:SELECT 'a/GO/b'/|5:SELECT 2/"},
        {"SELECT 'it''s\nGO\n'\nGO\nx", "1:SELECT 'it''s/GO/'/|5:x/"},
        {"SELECT [a\nGO\n], \"b\nGO\n\"\nGO\nx", "1:SELECT [a/GO/], \"b/GO/\"/|7:x/"},
        {"/* /* */\nGO\n*/ x\nGO\ny", "1:/* /* *//GO/*/ x/|5:y/"},
        {"-- don't\nx\nGO\ny -- /*\nGO\nz", "1:-- don't/x/|4:y -- /*/|6:z/"},
        {"GOTO done\nGO\nSELECT GO\nGO", "1:GOTO done/|3:SELECT GO/"},
        {"x /*/ GO */ y\nGO\nz", "1:x /*/ GO */ y/|3:z/"},
    };
    for (const auto& [script, batches] : cases)
        EXPECT_EQ(parted(script), batches) << script;
    for (const char* broken : {"SELECT 'a\nGO\n", "SELECT 1 /* a\nGO\n", "SELECT 1\nGO 3\n"})
        EXPECT_THROW(batchesOf(broken), ado::Error) << broken;
}

class Setup : public testing::Test {
  protected:
    Setup() {
        providers.add("server", provider);
        connection.Open("Data Source=server");
    }

    /// The lines of what was sent that begin so.
    std::vector<std::string> sent(const std::string& start) const {
        std::vector<std::string> lines;
        std::istringstream log(provider->log);
        for (std::string line; std::getline(log, line);)
            if (line.starts_with(start))
                lines.push_back(line);
        return lines;
    }

    std::shared_ptr<tests::RecordingProvider> provider = std::make_shared<tests::RecordingProvider>();
    ado::Providers providers;
    ado::Connection connection{providers};
    ServerOptions options;
};

TEST_F(Setup, SendsEveryScriptInItsOrderAndTellsHowFarItIs) {
    std::vector<std::string> steps;
    options.hospitalName = "ST. ANNE'S";
    ServerSetup setup(connection, [&](const ServerProgress& progress) {
        EXPECT_LE(progress.done, progress.total);
        if (progress.done == progress.total)
            steps.push_back(progress.step);
    });
    EXPECT_TRUE(setup.make(options));
    ASSERT_EQ(steps.size(), serverScriptCount + 1);
    EXPECT_EQ(steps.front(), "01-databases.sql");
    EXPECT_EQ(steps.back(), "16-audit.sql");
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end() - 4));
    EXPECT_EQ(sent("GO"), std::vector<std::string>{});
    EXPECT_LT(provider->log.find("N'ST. ANNE''S'"), provider->log.find("N'SAN ROQUE GENERAL HOSPITAL'"));
    EXPECT_NE(provider->log.find("@Password nvarchar(100) = N'';"), std::string::npos);
    EXPECT_EQ(provider->log.find("INSERT INTO Patient_Data.dbo"), std::string::npos);

    options.deskPassword = "it's; GO";
    provider->log.clear();
    setup.make(options);
    EXPECT_NE(provider->log.find("@Password nvarchar(100) = N'it''s; GO';"), std::string::npos);
}

TEST_F(Setup, StopsAtTheFirstBatchThatFailsAndSaysWhereItStands) {
    provider->failOn("UPDATE", "No right.");
    try {
        ServerSetup(connection).send("some.sql", "SELECT 1\nGO\nUPDATE x\nGO\nSELECT 3\n");
        FAIL() << "went on";
    } catch (const ado::Error& error) {
        EXPECT_STREQ(error.what(), "some.sql, the batch of line 3: No right.");
    }
    EXPECT_EQ(sent("SELECT").size(), 1U);
    provider->failOn("IF DB_ID(N'Build_File')", "No room.");
    EXPECT_THROW(ServerSetup(connection).make(options), ado::Error);
    EXPECT_EQ(sent("CREATE TABLE").size(), 0U);
}

TEST_F(Setup, AddsPatientsInStatementsOfManyRowsAndAllAtOnce) {
    options.patients = 450;
    options.today = {2026, 6, 30, 0, 0, 0};
    EXPECT_TRUE(ServerSetup(connection).make(options));
    std::set<std::string> patients;
    int statements = 0;
    for (const ado::Request& request : provider->requests) {
        const bool isMaster = request.text.starts_with("INSERT INTO Patient_Data.dbo.tbMaster (HospNum, ");
        const bool isVisit = request.text.starts_with("INSERT INTO Patient_Data.dbo.tbOutPatient (IDNum, HospNum, ");
        statements += isMaster ? 1 : 0;
        std::istringstream rows(request.text);
        std::string row;
        std::getline(rows, row);
        while ((isMaster || isVisit) && std::getline(rows, row)) {
            std::string number = row.substr(row.find("N'") + 2, 8);
            if (isMaster)
                EXPECT_TRUE(patients.insert(number).second) << number;
            else
                EXPECT_TRUE(patients.contains(row.substr(row.find(", N'") + 4, 8))) << row << " has no patient yet";
        }
    }
    EXPECT_EQ(patients.size(), 450U);
    EXPECT_EQ(statements, 3);
    EXPECT_EQ(sent("UPDATE Patient_Data.dbo.tbCounter SET Last = 450 WHERE Name = N'HospNum'").size(), 1U);
    EXPECT_LT(provider->log.find("begin\n"), provider->log.find("INSERT INTO Patient_Data.dbo.tbMaster ("));
    EXPECT_TRUE(provider->log.ends_with("commit\n"));

    provider->answer("Select top 1 HospNum", tests::oneRow({{"HospNum", "00000001"}}));
    provider->log.clear();
    EXPECT_FALSE(ServerSetup(connection).make(options)) << "a second time";
    EXPECT_EQ(provider->log.find("INSERT INTO Patient_Data.dbo"), std::string::npos);
}

TEST(InsertStatements, WriteEveryKindOfValueAsAServerReadsIt) {
    std::string sent;
    InsertStatements statements([&](const ado::Statement& statement) { sent += statement.str() + "\n"; });
    const demonstration::Table table{"tbMaster", {"LastName", "Title", "BirthDate", "AdmDate", "FileNum"}};
    statements.add(table, {"O'Brien Ñ", {}, DateTime{1980, 3, 7, 0, 0, 0}, DateTime{2026, 6, 30, 9, 5, 7}, 12});
    statements.add(table, {"", "", {}, {}, 0});
    EXPECT_EQ(sent, "");
    statements.setCounter("OPDID", 2600000001);
    EXPECT_EQ(sent, "INSERT INTO Patient_Data.dbo.tbMaster (LastName, Title, BirthDate, AdmDate, FileNum) VALUES\n"
                    "(N'O''Brien Ñ', NULL, '19800307 00:00:00', '20260630 09:05:07', 12),\n"
                    "(N'', N'', NULL, NULL, 0)\n"
                    "UPDATE Patient_Data.dbo.tbCounter SET Last = 2600000001 WHERE Name = N'OPDID'\n");
}

} // namespace
