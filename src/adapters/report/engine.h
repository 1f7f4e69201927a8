#pragma once

#include "ado/connection.h"
#include "base/clock/clock.h"
#include "ports/report/engine.h"

#include <functional>

namespace opd::adapters {

/// Makes documents from report files (see docs/reports.md), with bar codes and the patients' photographs in them.
class ReportEngine final : public report::Engine {
  public:
    struct Surroundings {
        const Clock& clock;                                                     ///< tells the time of print
        std::function<SharedImage(const std::string& hospNum)> photograph = {}; ///< null where there is none
        std::function<void(ado::Connection&)> onConnect = {}; ///< is shown each connection before it is opened
    };

    explicit ReportEngine(Surroundings surroundings) : m_surroundings(std::move(surroundings)) {}

    std::unique_ptr<report::Report> open(const std::filesystem::path& file) const override;

  private:
    Surroundings m_surroundings;
};

} // namespace opd::adapters
