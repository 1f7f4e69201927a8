#pragma once

#include "base/clock/clock.h"

namespace opd::os {

/// The clock of the machine, in its local time zone.
class SystemClock final : public Clock {
  public:
    DateTime now() const override;
};

} // namespace opd::os
