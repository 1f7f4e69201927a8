#pragma once

#include "base/clock/date_time.h"

namespace opd {

/// The workstation's clock, asked through this seam alone, so that a test or a demonstration can stand at any
/// date.
class Clock {
  public:
    virtual ~Clock() = default;

    /// The local date and time of now.
    virtual DateTime now() const = 0;
};

/// A clock that stands at one moment: for tests, and for a desk that is to show a certain day.
class FixedClock final : public Clock {
  public:
    explicit FixedClock(const DateTime& at) : moment(at) {}
    DateTime now() const override { return moment; }

    DateTime moment; ///< where it stands
};

} // namespace opd
