#pragma once

#include "adapters/odbc/held_end.h"

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <thread>
#include <utility>

namespace opd::adapters::odbc {

/// What the caller of a call that may block does meanwhile. One that cannot be cancelled is left to itself instead.
struct Meanwhile {
    std::function<bool()> onWait = [] { return true; }; ///< told over and over; false asks to cancel
    std::function<void()> cancel;                       ///< makes the call end soon; from another thread
    std::chrono::steady_clock::time_point deadline{};   ///< when it is cancelled unasked
};

/// How a call ended that may have been cancelled.
struct Ending {
    bool wasGivenUp = false;  ///< `onWait` asked for it
    bool wasTooLong = false;  ///< the deadline passed
    bool wasDeserted = false; ///< it did not end when it was cancelled: it goes on by itself, and nobody hears of it
    bool wasHeld = false;     ///< likewise, because it wanted to end the process
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
    const auto wasHeld = std::make_shared<std::atomic<bool>>(false);
    std::thread([task = std::move(task), wasHeld]() mutable {
        const HeldEnd heldEnd(wasHeld);
        task();
    }).detach();
    auto pause = std::chrono::milliseconds{toldAfter};
    auto deadline = meanwhile.deadline;
    while (answer.wait_for(pause) != std::future_status::ready) {
        if (*wasHeld) {
            ending.wasHeld = ending.wasDeserted = true;
            return std::nullopt;
        }
        pause = toldEvery;
        const bool goesOn = meanwhile.onWait();
        const bool isLate = std::chrono::steady_clock::now() >= deadline;
        const bool wasCancelled = ending.wasGivenUp || ending.wasTooLong;
        if (wasCancelled ? !isLate : goesOn && !isLate)
            continue;
        if (!wasCancelled)
            (goesOn ? ending.wasTooLong : ending.wasGivenUp) = true;
        ending.wasDeserted = wasCancelled || !meanwhile.cancel;
        if (ending.wasDeserted)
            return std::nullopt;
        deadline = std::chrono::steady_clock::now() + grace;
        meanwhile.cancel();
    }
    return answer.get();
}

} // namespace opd::adapters::odbc
