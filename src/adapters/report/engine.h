#pragma once

#include "adapters/report/engine_module.h"

namespace opd::adapters {

/// Makes documents from report files (see docs/reports.md), with bar codes and the patients' photographs in them.
class ReportEngine final : public report::Engine {
  public:
    explicit ReportEngine(ReportSurroundings surroundings) : m_surroundings(std::move(surroundings)) {}

    std::unique_ptr<report::Report> open(const std::filesystem::path& file) const override;

  private:
    ReportSurroundings m_surroundings;
};

} // namespace opd::adapters
