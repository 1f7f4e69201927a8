#pragma once

#include "ports/report/engine.h"
#include "session/session.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace opd::reports {

/// Opens a report file: gives it the hospital's name and address, logs its tables on to the patient database, and fills
/// its parameter fields by position, as far as there are both fields and values. Throws std::runtime_error when the
/// file is no report.
std::unique_ptr<report::Report> PrepareReport(const Session& session, const std::filesystem::path& file,
                                              const std::vector<std::string>& values);

/// Shows a prepared report in a window of its own, or, `directPrint`, sends it to the standard printer; returns when
/// that window is closed. Throws ado::Error when its data cannot be read and std::runtime_error when it cannot be laid
/// out.
void ShowReport(Session& session, const report::Report& report, bool showGroupTree, const std::string& caption,
                bool directPrint);

} // namespace opd::reports
