#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace opd::adapters::odbc {

/// What the caller of a call that may block does meanwhile.
struct Meanwhile {
    std::function<bool()> onWait = [] { return true; }; ///< told over and over; false asks to cancel
    std::function<void()> cancel = [] {};               ///< makes the call end soon; from another thread
    std::chrono::steady_clock::time_point deadline;     ///< when it is cancelled unasked
};

/// How a call ended that may have been cancelled.
struct Ending {
    bool wasGivenUp = false;  ///< `onWait` asked for it
    bool wasTooLong = false;  ///< the deadline passed
    bool wasDeserted = false; ///< it did not end when it was cancelled: it goes on by itself, and nobody hears of it
};

/// Runs the work on a thread of its own, because drivers do not come back while they wait. Returns what it returns and
/// throws what it throws; nothing when it was deserted, so what it uses must belong to it.
template <class Answer>
std::optional<Answer> inBackground(std::function<Answer()> work, const Meanwhile& meanwhile, Ending& ending) {
    using namespace std::chrono_literals;
    constexpr auto toldAfter = 150ms; // what is quicker waits for nothing
    constexpr auto toldEvery = 40ms;
    constexpr auto grace = 5s; // for the server's word on a cancellation

    std::packaged_task<Answer()> task(std::move(work));
    std::future<Answer> answer = task.get_future();
    std::thread(std::move(task)).detach();
    auto pause = std::chrono::milliseconds{toldAfter};
    auto deadline = meanwhile.deadline;
    while (answer.wait_for(pause) != std::future_status::ready) {
        pause = toldEvery;
        const bool goesOn = meanwhile.onWait();
        const bool isLate = std::chrono::steady_clock::now() >= deadline;
        const bool isCancelled = ending.wasGivenUp || ending.wasTooLong;
        if (isCancelled && isLate) {
            ending.wasDeserted = true;
            return std::nullopt;
        }
        if (isCancelled || (goesOn && !isLate))
            continue;
        (goesOn ? ending.wasTooLong : ending.wasGivenUp) = true;
        deadline = std::chrono::steady_clock::now() + grace;
        meanwhile.cancel();
    }
    return answer.get();
}

} // namespace opd::adapters::odbc
