#include "adapters/sqlite/engine/writer_queue.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <vector>

namespace opd::adapters::sqlite {

namespace {

TEST(WriterQueue, KeepsTheOrderOfComingAndGivesThePlaceOfTheDeadAway) {
    const tests::TemporaryFolder folder;
    const std::filesystem::path file = folder / "hospital.db.queue";
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t dying = fork();
    if (dying == 0) {
        WriterQueue first(file);
        first.enter([] { return true; });
        [[maybe_unused]] const auto told = write(ready[1], "x", 1);
        pause();
        _exit(0);
    }
    char told = 0;
    ASSERT_EQ(read(ready[0], &told, 1), 1);

    std::vector<int> order;
    std::array<std::atomic<bool>, 4> waits{};
    std::vector<std::thread> desks;
    for (std::size_t desk = 0; desk < waits.size(); ++desk) {
        desks.emplace_back([&, desk] {
            WriterQueue queue(file);
            queue.enter([&] { return waits[desk] = true; });
            order.push_back(static_cast<int>(desk)); // one after the other
            queue.leave();
        });
        while (!waits[desk])
            std::this_thread::yield();
    }
    EXPECT_TRUE(order.empty());
    kill(dying, SIGKILL);
    waitpid(dying, nullptr, 0);
    for (std::thread& desk : desks)
        desk.join();
    EXPECT_EQ(order, (std::vector<int>{0, 1, 2, 3}));
}

TEST(WriterQueue, NobodyWaitsLongerThanThePatienceOrWhereThereIsNoFile) {
    const tests::TemporaryFolder folder;
    WriterQueue first(folder / "q"), second(folder / "q"), nowhere(folder / "no folder" / "q");
    first.enter([] { return false; });
    int naps = 0;
    second.enter([&] { return ++naps < 5; });
    EXPECT_EQ(naps, 5);
    nowhere.enter([&] { return ++naps < 9; });
    EXPECT_EQ(naps, 5);
}

} // namespace
} // namespace opd::adapters::sqlite
