// What a desk is told is on the disk, and nobody waits for another one's disk.
#include "adapters/sqlite/hospital.h"
#include "contract/save_statements.h"
#include "support/sql.h"

#include <cerrno>
#include <dlfcn.h>
#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// What the disk does in the place of putting a file on it; it answers as the system does.
std::function<int(int file)> disk;

int sync(const char* call, int file) {
    return disk ? disk(file) : reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, call))(file);
}

} // namespace

extern "C" int fsync(int file) {
    return sync("fsync", file);
}

extern "C" int fdatasync(int file) {
    return sync("fdatasync", file);
}

using namespace opd;
using namespace opd::tests;

namespace {

const std::string nameOfFirst = "Select LastName from Patient_Data..tbMaster where HospNum = '00000001'";

ado::Statement nameChange(const std::string& name) {
    return sql("Update Patient_Data..tbMaster set LastName = '" + name + "' where HospNum = '00000001'");
}

std::string nameIn(EmbeddedHospital& hospital) {
    return rowsOf(*hospital.connect(), nameOfFirst).front();
}

std::filesystem::path journalOf(const EmbeddedHospital& hospital) {
    return hospital.file().string() + "-wal";
}

/// The ways in which a desk writes.
std::vector<std::function<void(ado::Connection&, const std::string& name)>> waysToWrite() {
    return {[](ado::Connection& desk, const std::string& name) { desk.Execute(nameChange(name)); },
            [](ado::Connection& desk, const std::string& name) {
                ado::Transaction transaction(desk);
                desk.Execute(nameChange(name));
                transaction.commit();
            },
            [](ado::Connection& desk, const std::string& name) {
                std::vector<std::string> values = masterValues("00000001", newOpdNumber(desk) + "B");
                values.at(1) = name;
                desk.Execute(sql(callOf("sp_aopd_Update_TbMaster", values)));
            }};
}

/// Calls it while the disk is what is given.
void withDisk(std::function<int(int)> given, const std::function<void()>& act) {
    disk = std::move(given);
    try {
        act();
    } catch (...) {
        disk = nullptr;
        throw;
    }
    disk = nullptr;
}

TEST(Durability, WhatWasToldIsOnTheDiskAndOthersWriteWhileItGoesThere) {
    EmbeddedHospital hospital, atPowerCut;
    const auto desk = hospital.connect(), other = hospital.connect();
    other->setPatience(std::chrono::milliseconds{50});
    desk->Execute(nameChange("FIRST")); // the journal begins, of which the library itself sees to the disk
    int write = 0;
    for (const auto& way : waysToWrite()) {
        const std::string name = "WRITTEN " + std::to_string(++write);
        int others = 0;
        const auto powerCutBehind = [&](int) {
            for (const char* part : {"", "-wal"})
                std::filesystem::copy_file(hospital.file().string() + part, atPowerCut.file().string() + part,
                                           std::filesystem::copy_options::overwrite_existing);
            std::filesystem::remove(atPowerCut.file().string() + "-shm");
            const auto this_ = std::exchange(disk, [](int) { return 0; });
            other->Execute(sql("Update Patient_Data..tbMaster set Title = 'DR' where HospNum = '00000002'"));
            disk = this_;
            ++others;
            return 0;
        };
        withDisk(powerCutBehind, [&] { way(*desk, name); });
        EXPECT_EQ(others, 1) << "once for each commit";
        EXPECT_EQ(nameIn(atPowerCut), name);
    }
    int times = 0;
    withDisk([&](int) { return ++times, 0; }, [&] { newOpdNumber(*desk); });
    EXPECT_EQ(times, 0) << "a number that nothing was written under";
}

TEST(Durability, AfterTheDiskHasFailedNothingIsCalledStored) {
    for (const auto& way : waysToWrite()) {
        EmbeddedHospital hospital;
        const auto desk = hospital.connect();
        desk->Execute(nameChange("FIRST"));
        try {
            withDisk([](int) { return errno = EIO, -1; }, [&] { way(*desk, "LOST"); });
            ADD_FAILURE() << "it was called stored";
        } catch (const ado::Error& failure) {
            EXPECT_TRUE(failure.leavesDoubt()) << failure.what();
        }
        EXPECT_NE(errorOf(*desk, nameOfFirst), "") << "what is read now may be gone after a power cut";
        EXPECT_NE(errorOf(*desk, nameChange("LATER").str()), "");
        EXPECT_NO_THROW(hospital.connect()->Execute(nameChange("LATER"))) << "a desk that is started anew";
    }
}

TEST(Durability, TheJournalBeginsAnewWhileDesksWriteAllTheTime) {
    EmbeddedHospital hospital;
    const auto desk = hospital.connect(), other = hospital.connect();
    constexpr std::uintmax_t longest = 1200UL * 4120;
    withDisk([](int) { return 0; },
             [&] {
                 for (int i = 0; i < 1500; ++i)
                     (i % 2 == 0 ? desk : other)->Execute(nameChange("NAME " + std::to_string(i)));
             });
    EXPECT_LT(std::filesystem::file_size(journalOf(hospital)), longest);
    EXPECT_EQ(nameIn(hospital), "NAME 1499");
}

} // namespace
