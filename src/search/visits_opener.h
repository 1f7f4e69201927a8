#pragma once

namespace opd::search {

/// Shows the visits that were registered today. The search window knows no more of them.
class VisitsOpener {
  public:
    virtual ~VisitsOpener() = default;

    /// Shows their window and returns when it is closed. Throws ado::Error when they cannot be read.
    virtual void showTodaysVisits() = 0;
};

} // namespace opd::search
