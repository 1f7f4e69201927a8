#include "component/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace opd {
namespace {

using tests::contentOf;
using tests::Outcome;
using tests::runDesk;
using tests::writeFile;

/// A workstation of its own: no settings, no registered classes.
class Desk : public ::testing::Test {
  protected:
    std::string at(const std::string& name) const { return (m_folder / name).string(); }

    void makeHospital(const std::string& name) {
        const Outcome made = runDesk({"create-database", at(name), "--patients", "20", "--name", "Test Hospital"});
        ASSERT_EQ(made.status, 0) << made.errors;
        EXPECT_EQ(made.output + made.errors, "") << "no progress without a terminal";
    }

    Outcome play(const std::string& script, std::vector<std::string> more) {
        writeFile(m_folder / "script.opd", script);
        more.insert(more.begin(), {"run", "--desktop", "scripted", "--script", at("script.opd")});
        return runDesk(more);
    }

    static void expectOneLine(const Outcome& outcome, const std::string& part) {
        EXPECT_EQ(outcome.status, 1) << part;
        EXPECT_EQ(outcome.output, "") << part;
        EXPECT_EQ(std::count(outcome.errors.begin(), outcome.errors.end(), '\n'), 1) << outcome.errors;
        EXPECT_TRUE(outcome.errors.starts_with("opd-desk: ")) << outcome.errors;
        EXPECT_NE(outcome.errors.find(part), std::string::npos) << outcome.errors;
    }

    const tests::TemporaryFolder m_folder;
    const tests::Variable m_registry{"OPD_CLASS_REGISTRY", at("classes.ini")};
    const tests::Variable m_config{"XDG_CONFIG_HOME", at("config")};
    const tests::Variable m_data{"XDG_DATA_HOME", at("data")};
};

constexpr const char* closeAtOnce = "expect-window frmMasterSearch\nclick Command1(2)\n";

TEST_F(Desk, AWrongCommandLineIsOneLineAndStatusOne) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{}, "subcommand"},
        {{"rnu"}, "\"rnu\""},
        {{"run", "--dtabase", "x"}, "\"--dtabase\""},
        {{"create-database"}, "FOLDER"},
        {{"create-database", at("new"), "--patients", "many"}, "--patients"},
        {{"configure"}, "--server"},
        {{"configure", "--server", "a;b"}, "semicolon"},
        {{"configure", "--user", "sa"}, "name it with --server"},
        {{"run", "--desktop", "gtk"}, "--desktop"},
        {{"run", "--database", "a", "--settings", "b"}, "excludes"},
        {{"run", "--desktop", "scripted"}, "opd-desk configure"},
        {{"create-database", m_folder.path().parent_path().string()}, "not empty"},
    };
    for (const auto& [arguments, part] : cases)
        expectOneLine(runDesk(arguments), part);
    EXPECT_EQ(runDesk({"--help"}).status, 0);
    EXPECT_TRUE(runDesk({"--version"}).output.starts_with("opd-desk "));
}

TEST_F(Desk, StoresConnectionSettingsForTheirOwnerAlone) {
    const Outcome stored = runDesk({"configure", "--server", "HIS", "--user", "sa", "--password-stdin",
                                    "--watch-other-desks", "no", "--carry-sex-and-birth-date", "yes"},
                                   "s3 cret#\nmore\n");
    EXPECT_EQ(stored.status, 0) << stored.errors;
    EXPECT_EQ(stored.output + stored.errors, "") << "the password appears nowhere";
    const auto file = m_folder / "config" / "QUORIN Current User.ini";
    EXPECT_EQ(contentOf(file), "[Connection]\nUser=sa\nPassword=s3 cret#\nServer=HIS\n[Saving]\nWatchOtherDesks=no\n"
                               "[Searching]\nCarrySexAndBirthDate=yes\n");
    EXPECT_EQ(tests::modeOf(file), 0600U);
    EXPECT_EQ(runDesk({"configure", "--watch-other-desks", "yes"}).status, 0);
    EXPECT_TRUE(contentOf(file).starts_with(
        "[Connection]\nUser=sa\nPassword=s3 cret#\nServer=HIS\n[Saving]\nWatchOtherDesks=yes"));
    expectOneLine(runDesk({"configure", "--server", "HIS", "--password-stdin"}, ""), "no password");
    expectOneLine(runDesk({"configure", "--server", "HIS", "--watch-other-desks", "maybe"}, ""), "--watch-other-desks");
}

TEST_F(Desk, AStartThatCannotBeAndAFailedScriptSayWhyInOneLine) {
    ASSERT_EQ(runDesk({"configure", "--server", "HIS", "--settings", at("mine.ini")}).status, 0);
    expectOneLine(play(closeAtOnce, {"--settings", at("mine.ini")}), "database server \"HIS\"");
    std::filesystem::permissions(at("mine.ini"), std::filesystem::perms::others_read,
                                 std::filesystem::perm_options::add);
    expectOneLine(play(closeAtOnce, {"--settings", at("mine.ini")}), "chmod 600 \"" + at("mine.ini") + "\"");

    expectOneLine(play(closeAtOnce, {"--database", at("missing")}), at("missing"));
    makeHospital("hospital");
    expectOneLine(play("expect-window frmMasterSearch\nexpect txtName(0) \"NOBODY\"\n", {"--database", at("hospital")}),
                  "script.opd:2: ");
    expectOneLine(play("click Command1(2)\nexpect-window frmMasterSearch\n", {"--database", at("hospital")}),
                  "script.opd:2: expected a window, but the desk was closed");
    expectOneLine(play("no such command\n", {"--database", at("hospital")}), "script.opd:1: ");
    expectOneLine(runDesk({"run", "--desktop", "scripted", "--database", at("hospital"), "--script", at("none.opd")}),
                  "none.opd");
    expectOneLine(runDesk({"run", "--desktop", "scripted", "--database", at("hospital"), "--script", at("hospital")}),
                  "cannot be read");
    expectOneLine(play(closeAtOnce, {"--database", at("hospital"), "--trace", at("hospital/hospital.db")}),
                  "is read by this run");
    std::filesystem::create_symlink(at("hospital/hospital.db"), at("trace"));
    expectOneLine(play(closeAtOnce, {"--database", at("hospital"), "--trace", at("trace")}), "is not followed");
    writeFile(at("classes.ini"), "[OPDRegistration.InitDLL]\nClass=nonsense\n");
    const Outcome mended = play(closeAtOnce, {"--database", at("hospital")});
    EXPECT_EQ(mended.status, 0) << mended.errors;
    EXPECT_NE(mended.errors.find("registered anew"), std::string::npos) << mended.errors;
    EXPECT_EQ(play(closeAtOnce, {"--database", at("hospital")}).errors, "");
}

TEST_F(Desk, AHospitalIsForOwnerAndGroupAndCanBeMadeAgainAfterAKill) {
    std::filesystem::create_directory(m_folder / "hospital");
    for (const char* left : {"hospital.db.unfinished", "hospital.db.unfinished-journal"})
        writeFile(m_folder / "hospital" / left, "of a killed run");
    const int living = ::open(at("hospital/hospital.db.unfinished").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(living, LOCK_EX), 0);
    expectOneLine(runDesk({"create-database", at("hospital")}), "Another program is making it");
    ::close(living);
    const mode_t before = ::umask(007);
    makeHospital("hospital");
    makeHospital("new");
    ::umask(before);
    EXPECT_EQ(tests::modeOf(at("new")), 02770U) << "what a desk makes there is the group's";
    EXPECT_EQ(tests::modeOf(at("new/hospital.db")), 0660U);
    EXPECT_FALSE(std::filesystem::exists(at("hospital/hospital.db.unfinished-journal")));
    expectOneLine(runDesk({"create-database", at("hospital")}), "not empty");
}

TEST_F(Desk, OpensTheHospitalThatTheStoreNamesAndTracesEveryStatementForItsOwnerAlone) {
    makeHospital("hospital");
    ASSERT_EQ(runDesk({"configure", "--server", at("hospital"), "--settings", at("mine.ini")}).status, 0);
    writeFile(m_folder / "trace.txt", "of an earlier run\n");
    const Outcome shown = play("expect txtName(0) \"CRUZ\"\nprint Command1(2)\nclick Command1(2)\n",
                               {"--settings", at("mine.ini"), "--search", "CRUZ", "--trace", at("trace.txt")});
    EXPECT_EQ(shown.status, 0) << shown.errors;
    EXPECT_EQ(shown.output + shown.errors, "&Close\n");
    const std::string trace = contentOf(m_folder / "trace.txt");
    EXPECT_TRUE(trace.starts_with("Select top 1 isnull(ClientName,'') as ClientName, ")) << trace;
    EXPECT_TRUE(trace.ends_with("\nselect * from Patient_Data..tbHospitalInfo\n")) << trace;
    EXPECT_EQ(tests::modeOf(m_folder / "trace.txt"), 0600U);
}

TEST_F(Desk, OpensAHospitalInTheShellOfTheDatabaseForReading) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "a shell without the sanitizer cannot load a library with it";
#endif
    makeHospital("hospital");
    const std::string patient =
        "select HospNum from Patient_Data_tbMaster where LastName = 'peña ' and FirstName like 'P%'";
    EXPECT_EQ(runDesk({"sql", at("hospital"), patient}).output, "00000003\n");
    EXPECT_EQ(runDesk({"sql", at("hospital")}, "pragma integrity_check;").output, "ok\n");
    const std::string rename = "update Patient_Data_tbMaster set LastName = 'PINO' where HospNum = '00000003';";
    EXPECT_NE(runDesk({"sql", at("hospital"), rename}).errors.find("readonly"), std::string::npos);
    EXPECT_EQ(runDesk({"sql", at("hospital"), patient}).output, "00000003\n");
    EXPECT_EQ(runDesk({"sql", "--write", at("hospital"), rename + patient}).output, "");
    expectOneLine(runDesk({"sql", at("nowhere")}), "holds no hospital database");
    const tests::Variable nothingInstalled("PATH", at("nowhere"));
    expectOneLine(runDesk({"sql", at("hospital")}), "is not installed");
}

} // namespace
} // namespace opd
