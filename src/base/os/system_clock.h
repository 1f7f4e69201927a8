#pragma once

#include "base/clock/clock.h"

namespace opd::os {

/// The clock of the machine, in its local time zone.
class SystemClock final : public Clock {
  public:
    DateTime now() const override;
};

/// One that lives as long as the process.
const Clock& machineClock();

} // namespace opd::os
