#pragma once

#include "session/session.h"

#include <filesystem>
#include <string>
#include <vector>

namespace opd::reports {

/// Opens a report file as the session's current report, in place of one before it: gives it the hospital's name and
/// address, logs its tables on to the patient database, and fills its parameter fields by position, as far as there are
/// both fields and values. Throws std::runtime_error when the file is no report.
void PrepareReport(Session& session, const std::filesystem::path& file, const std::vector<std::string>& values);

/// Shows the current report in a window of its own, or, `directPrint`, sends it to the standard printer; returns when
/// that window is closed. The report is released then. Throws ado::Error when its data cannot be read and
/// std::runtime_error when it cannot be laid out.
void ShowReport(Session& session, bool showGroupTree, const std::string& caption, bool directPrint);

} // namespace opd::reports
