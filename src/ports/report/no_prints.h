#pragma once

#include "ports/report/output.h"

namespace opd::report {

/// A workstation that has never printed and remembers nothing: what scripts and measurements work at.
struct NoPrints final : PrintMemory {
    PrintChoice choiceFor(const std::string&) const override { return {}; }
    void keep(const std::string&, const PrintChoice&) override {}
};

} // namespace opd::report
