#pragma once

#include "platform/clock/date_time.h"

namespace opd {

/// The workstation's clock, asked through this seam so that a test can stand at any date.
class Clock {
  public:
    virtual ~Clock() = default;

    /// The local date and time of now.
    virtual DateTime now() const = 0;
};

/// The clock of the machine, in its local time zone.
class SystemClock final : public Clock {
  public:
    DateTime now() const override;
};

} // namespace opd
