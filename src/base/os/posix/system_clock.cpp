#include "base/os/system_clock.h"

#include <ctime>

namespace opd::os {

DateTime SystemClock::now() const {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

const Clock& machineClock() {
    static const SystemClock clock;
    return clock;
}

} // namespace opd::os
