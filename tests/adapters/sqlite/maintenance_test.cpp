#include "adapters/sqlite/care/maintenance.h"
#include "adapters/sqlite/hospital.h"

#include <gtest/gtest.h>

#include <fstream>

namespace opd::adapters::sqlite {

namespace {

using tests::EmbeddedHospital;

std::string surname(ado::Connection& desk) {
    return desk.Execute("select LastName from Patient_Data..tbMaster where HospNum = '00000007'")
        .Fields("LastName")
        .asText();
}

long lastGiven(const EmbeddedHospital& hospital) {
    const FixedClock clock{DateTime{2026, 7, 1}};
    const Database database(hospital.file(), Database::Mode::Existing, clock);
    Query counter(database, "SELECT Last FROM Patient_Data_tbCounter WHERE Name = 'OPDID'");
    counter.next();
    return static_cast<long>(counter.value(0).asNumber());
}

void damage(const std::filesystem::path& file) {
    std::fstream bytes(file, std::ios::in | std::ios::out | std::ios::binary);
    bytes.seekp(8L * 4096);
    bytes << std::string(4UL * 4096, 'x');
}

TEST(Maintenance, ABackupOfAWorkingHospitalComesBackAndNoNumberIsGivenTwice) {
    EmbeddedHospital hospital;
    const auto desk = hospital.connect();
    const std::string before = surname(*desk);
    const std::filesystem::path backup = hospital.folder().parent_path() / "backup.db";
    desk->BeginTrans();
    desk->Execute("update Patient_Data..tbMaster set LastName = 'UNSAVED' where HospNum = '00000007'");
    backUp(hospital.folder(), backup);
    desk->RollbackTrans();
    EXPECT_THROW(backUp(hospital.folder(), backup), std::runtime_error);

    hospital.runAsAdministrator("UPDATE Patient_Data_tbMaster SET LastName = 'LATER' WHERE HospNum = '00000007';"
                                "UPDATE Patient_Data_tbCounter SET Last = Last + 5");
    const long given = lastGiven(hospital);
    const std::filesystem::path kept = restore(hospital.folder(), backup);
    EXPECT_EQ(surname(*desk), before) << "a desk that works on sees it";
    EXPECT_EQ(lastGiven(hospital), given);
    EXPECT_EQ(faultsOf(hospital.folder()), std::vector<std::string>{});
    restore(hospital.folder(), kept);
    EXPECT_EQ(surname(*desk), "LATER");

    EmbeddedHospital other;
    desk->Execute("update Patient_Data..tbMaster set LastName = 'IN THE JOURNAL' where HospNum = '00000007'");
    restore(other.folder(), hospital.file());
    EXPECT_EQ(surname(*other.connect()), "IN THE JOURNAL") << "what is in use is restored whole";
}

TEST(Maintenance, ADamagedHospitalIsSetAsideAndADamagedBackupRefused) {
    EmbeddedHospital hospital;
    const std::string before = surname(*hospital.connect());
    const std::filesystem::path backup = hospital.folder().parent_path() / "backup.db";
    backUp(hospital.folder(), backup);
    hospital.runAsAdministrator("UPDATE Patient_Data_tbCounter SET Last = Last + 5");
    const long given = lastGiven(hospital);
    damage(hospital.file());
    EXPECT_FALSE(faultsOf(hospital.folder()).empty());
    const auto rightsOf = [](const std::filesystem::path& file) { return std::filesystem::status(file).permissions(); };
    const std::filesystem::perms rights = rightsOf(hospital.file());
    std::filesystem::permissions(backup, std::filesystem::perms::owner_read);
    const std::filesystem::path aside = restore(hospital.folder(), backup);
    EXPECT_EQ(surname(*hospital.connect()), before);
    EXPECT_EQ(rightsOf(hospital.file()), rights) << "the desks get at it as before";
    EXPECT_EQ(lastGiven(hospital), given) << "the damaged file tells it still";
    EXPECT_THROW(restore(hospital.folder(), aside), std::runtime_error);
    std::filesystem::resize_file(hospital.file(), 0);
    EXPECT_EQ(faultsOf(hospital.folder()).size(), 1U);
    EXPECT_EQ(restore(hospital.folder(), backup), hospital.file().string() + ".damaged.2");
    EXPECT_FALSE(std::filesystem::exists(hospital.file().string() + ".restored")) << "a refused draft stays";
    EXPECT_EQ(faultsOf(hospital.folder()), std::vector<std::string>{});
    hospital.runAsAdministrator("UPDATE Patient_Data_tbOutPatient SET HospNum = '00009999' WHERE IDNum = "
                                "(SELECT min(IDNum) FROM Patient_Data_tbOutPatient)");
    EXPECT_EQ(faultsOf(hospital.folder()).size(), 1U);

    hospital.runAsAdministrator("DROP TABLE Patient_Data_tbMasterDependent; DROP INDEX Patient_Data_tbMaster_Search");
    restore(hospital.folder(), backup);
    EXPECT_EQ(hospital.connect()->Execute("select * from Patient_Data..tbMasterDependent").State(), 1) << "it is back";
    EXPECT_THROW(
        hospital.runAsAdministrator("CREATE INDEX Patient_Data_tbMaster_Search ON Patient_Data_tbMaster (Sex)"),
        ado::Error);
}

// The journal of a desk that was killed is left when its file is lost.
TEST(Maintenance, AJournalWithoutItsFileIsNoPartOfTheNextOne) {
    EmbeddedHospital hospital;
    const std::string before = surname(*hospital.connect());
    const std::filesystem::path backup = hospital.file().string() + ".restored-by-hand";
    backUp(hospital.folder(), backup);
    const std::filesystem::path journal = hospital.file().string() + "-wal", left = backup.string() + ".left";
    {
        const auto desk = hospital.connect();
        desk->Execute("update Patient_Data..tbMaster set LastName = 'JOURNAL' where HospNum = '00000007'");
        std::filesystem::copy_file(journal, left); // as a kill leaves it
    }
    std::filesystem::remove(hospital.file());
    std::filesystem::copy_file(left, journal);
    EXPECT_EQ(restore(hospital.folder(), backup), hospital.file().string() + ".damaged-wal");
    EXPECT_EQ(surname(*hospital.connect()), before);

    const std::filesystem::path second = hospital.folder().parent_path() / "second.db";
    std::filesystem::copy_file(left, second.string() + "-wal");
    backUp(hospital.folder(), second);
    restore(hospital.folder(), second);
    EXPECT_EQ(surname(*hospital.connect()), before);
    EXPECT_TRUE(std::filesystem::exists(backup)) << "an administrator's file of nearly a draft's name";
}

} // namespace
} // namespace opd::adapters::sqlite
