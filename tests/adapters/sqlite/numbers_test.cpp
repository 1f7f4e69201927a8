// Numbers that many desks draw at the same time.
#include "adapters/sqlite/hospital.h"
#include "contract/drawing.h"

#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <map>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace opd::tests {

namespace {

constexpr int desks = 8;
constexpr int drawnByEach = 1250;

int endOf(pid_t desk) {
    int status = 0;
    waitpid(desk, &status, 0);
    return status;
}

TEST(Numbers, EightDesksDrawTenThousandNumbersAndNoneIsDoubledOrLost) {
    // In memory where there is room: a disk that writes a number down for good takes its time over ten thousand.
    const std::filesystem::path memory = "/dev/shm";
    EmbeddedHospital hospital(1,
                              std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path());
    const TemporaryFolder folder;
    const auto last = [&](const char* counter) {
        return std::stol(rowsOf(*hospital.connect(),
                                "Select Last from Patient_Data..tbCounter where Name = '" + std::string{counter} + "'")
                             .at(0));
    };
    const std::map<char, long> before{{'H', last("HospNum")}, {'V', last("OPDID")}};
    std::vector<pid_t> running;
    running.reserve(desks);
    for (int n = 0; n < desks; ++n)
        running.push_back(startDrawing(hospital, folder / std::to_string(n), drawnByEach));
    const std::filesystem::path notesOfKilled = folder / "killed";
    const pid_t killed = startDrawing(hospital, notesOfKilled, -1);
    std::error_code missing;
    while (std::filesystem::file_size(notesOfKilled, missing) < 1000 || missing)
        usleep(1000);
    kill(killed, SIGKILL);
    EXPECT_TRUE(WIFSIGNALED(endOf(killed)));
    for (const pid_t desk : running)
        EXPECT_EQ(endOf(desk), 0);

    std::map<char, std::set<long>> drawn;
    const std::set<std::string> numbers = drawnNumbers(folder.path());
    for (const std::string& number : numbers) {
        ASSERT_EQ(number.size(), number[0] == 'H' ? 9U : 11U) << number;
        drawn[number[0]].insert(std::stol(number.substr(1)));
    }
    EXPECT_GE(numbers.size(), static_cast<std::size_t>(desks * drawnByEach));
    // Numbers follow each other. The desk that was killed may have taken one with it that it had no time to note.
    std::size_t lost = 0;
    for (const auto& [kind, ofKind] : drawn) {
        const long end = last(kind == 'H' ? "HospNum" : "OPDID");
        EXPECT_EQ(*ofKind.begin(), before.at(kind) + 1);
        EXPECT_LE(*ofKind.rbegin(), end);
        lost += static_cast<std::size_t>(end - before.at(kind)) - ofKind.size();
    }
    EXPECT_LE(lost, 1U);
}

TEST(Numbers, ADeskThatWritesAllTheTimeKeepsNobodyFromDrawing) {
    EmbeddedHospital hospital;
    std::atomic<bool> goesOn = true;
    std::thread busyDesk([&] {
        const auto connection = hospital.connect();
        while (goesOn) {
            ado::Transaction slow(*connection);
            std::this_thread::sleep_for(std::chrono::milliseconds{10});
            slow.commit();
        }
    });
    std::this_thread::sleep_for(std::chrono::milliseconds{500});
    const auto connection = hospital.connect();
    connection->setPatience(std::chrono::milliseconds{400});
    for (int n = 0; n < 20; ++n)
        EXPECT_NO_THROW(newOpdNumber(*connection)) << n;
    goesOn = false;
    busyDesk.join();
}

} // namespace
} // namespace opd::tests
