#pragma once

#include "ado/connection.h"
#include "base/clock/clock.h"
#include "base/os/library.h"
#include "ports/report/engine.h"

#include <functional>

namespace opd::adapters {

/// What a report engine needs besides the report files.
struct ReportSurroundings {
    const Clock& clock;                                                     ///< tells the time of print
    std::function<SharedImage(const std::string& hospNum)> photograph = {}; ///< null where there is none
    std::function<void(ado::Connection&)> onConnect = {}; ///< is shown each connection before it is opened
};

inline constexpr const char* createReportEngineSymbol = "opdCreateReportEngine";

using CreateReportEngine = report::Engine*(const ReportSurroundings& surroundings);

/// The report engine of the library in a folder. Throws os::LibraryError when it cannot be used.
inline std::unique_ptr<report::Engine> openReportEngine(const std::filesystem::path& folder,
                                                        const ReportSurroundings& surroundings) {
    const os::Library module{folder / os::libraryFileName("opd-report-engine")};
    return std::unique_ptr<report::Engine>(module.function<CreateReportEngine>(createReportEngineSymbol)(surroundings));
}

} // namespace opd::adapters

/// The report engine lies in a library of its own, so that a desk starts without it and what it rests on.
extern "C" {

/// Makes the engine; the caller owns it.
opd::report::Engine* opdCreateReportEngine(const opd::adapters::ReportSurroundings& surroundings);
}
