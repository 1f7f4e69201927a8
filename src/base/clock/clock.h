#pragma once

#include "base/clock/date_time.h"

namespace opd {

/// The workstation's clock, asked through this seam so that a test can stand at any date.
class Clock {
  public:
    virtual ~Clock() = default;

    /// The local date and time of now.
    virtual DateTime now() const = 0;
};

} // namespace opd
