// Every way in which a folder's database cannot be opened gives one clear message, and makes no file.
#include "adapters/sqlite/hospital.h"

#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <tuple>

using namespace opd;
using namespace opd::tests;
using adapters::sqlite::Database;

namespace {

const FixedClock standing{morning};

/// The message of opening a folder's database; empty when it opens.
std::string messageOf(const std::filesystem::path& folder) {
    ado::Providers providers;
    providers.add("embedded", adapters::sqlite::makeSqliteProvider(standing, {}, std::chrono::milliseconds{50}));
    ado::Connection connection(providers);
    try {
        connection.Open("Data Source=" + folder.string());
        rowsOf(connection, "select * from Patient_Data..tbHospitalInfo");
    } catch (const ado::Error& error) {
        return error.what();
    }
    return {};
}

/// The message says what is wrong and which folder it is about.
void expectMessage(const std::filesystem::path& folder, const std::string& part) {
    const std::string message = messageOf(folder);
    EXPECT_NE(message.find(part), std::string::npos) << "\"" << message << "\" lacks: " << part;
    EXPECT_NE(message.find(folder.string()), std::string::npos) << "\"" << message << "\" names no folder";
}

TEST(Opening, RefusesWhatIsNoDatabaseOfThisProgramAndMakesNothing) {
    const TemporaryFolder folder;
    const auto file = folder / "hospital.db";
    expectMessage(folder / "nowhere", "does not exist");
    EXPECT_FALSE(std::filesystem::exists(folder / "nowhere"));
    expectMessage(folder.path(), "no hospital database");
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    std::filesystem::create_directory(file);
    expectMessage(folder.path(), "cannot be opened");
    std::filesystem::remove(file);
    writeFile(file, std::string(5000, 'x'));
    expectMessage(folder.path(), "damaged or is no database");
    writeFile(file, "");
    expectMessage(folder.path(), "not a hospital database");
    Database(file, Database::Mode::Existing, standing).run("CREATE TABLE notes (text); PRAGMA user_version = 1");
    expectMessage(folder.path(), "not a hospital database");
    EmbeddedHospital newer;
    newer.runAsAdministrator("PRAGMA user_version = 99");
    expectMessage(newer.folder(), "newer version");
}

TEST(Opening, SaysThatAnotherProgramHoldsTheFile) {
    const EmbeddedHospital hospital;
    {
        Database other(hospital.file(), Database::Mode::Existing, standing);
        other.run("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
        expectMessage(hospital.folder(), "in use by another program");
    }
    EXPECT_EQ(messageOf(hospital.folder()), "");
}

TEST(Opening, SaysWhatTheUserMayNotDo) {
    using std::filesystem::perms;
    constexpr perms read = perms::owner_read | perms::group_read | perms::others_read;
    const std::tuple<perms, perms, const char*> cases[] = {{perms::none, perms::all, "closed to this user"},
                                                           {perms::all, perms::none, "may not read it"},
                                                           {perms::all, read, "may only read it"}};
    for (const auto& [ofFolder, ofFile, expected] : cases) {
        const EmbeddedHospital hospital;
        const pid_t clerk = fork(); // who is no superuser: that one may do everything
        if (clerk == 0) {
            std::filesystem::permissions(hospital.folder().parent_path(), perms::all);
            std::filesystem::permissions(hospital.file(), ofFile);
            std::filesystem::permissions(hospital.folder(), ofFolder);
            if (geteuid() == 0 && setuid(65534) != 0)
                _exit(3);
            _exit(messageOf(hospital.folder()).find(expected) != std::string::npos ? 0 : 1);
        }
        int status = -1;
        waitpid(clerk, &status, 0);
        EXPECT_EQ(WEXITSTATUS(status), 0) << expected;
        std::filesystem::permissions(hospital.folder(), perms::owner_all);
    }
}

TEST(Opening, NothingIsWrittenIntoAFileThatIsNoLongerThere) {
    EmbeddedHospital hospital, restored;
    const auto desk = hospital.connect();
    const auto refused = [&](const std::function<void()>& write) {
        try {
            write();
        } catch (const ado::Error& error) {
            return std::string{error.what()}.find("removed or replaced") != std::string::npos;
        }
        return false;
    };
    const auto expectRefused = [&] {
        EXPECT_TRUE(refused([&] { newHospNum(*desk); }));
        EXPECT_TRUE(refused([&] { ado::Transaction{*desk}; }));
        EXPECT_TRUE(
            refused([&] { desk->Execute("Update Patient_Data..tbOutPatient set isWalkIn = '1' where IDNum = 'X'"); }));
    };
    newHospNum(*desk);
    std::filesystem::rename(hospital.file(), hospital.folder() / "moved.db");
    expectRefused();
    std::filesystem::copy_file(restored.file(), hospital.file());
    expectRefused();
    EXPECT_NO_THROW(newHospNum(*hospital.connect())) << "a desk that starts now";
    std::filesystem::rename(hospital.folder() / "moved.db", hospital.file());
    EXPECT_NO_THROW(newHospNum(*desk)) << "its own file is back";
}

} // namespace
