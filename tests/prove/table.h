#pragma once

#include <gtest/gtest.h>

namespace opd::prove {

/// Prints a line for each case when it is over: outcome, time, and what it is about; below it, what was wrong.
class Table final : public testing::EmptyTestEventListener {
  public:
    void OnTestProgramStart(const testing::UnitTest& all) override;
    void OnTestEnd(const testing::TestInfo& test) override;
};

} // namespace opd::prove
