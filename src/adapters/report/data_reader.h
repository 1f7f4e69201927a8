#pragma once

#include "adapters/report/report_file.h"
#include "ado/connection.h"
#include "ports/report/engine.h"

#include <functional>
#include <map>
#include <string>

namespace opd::adapters::reporting {

/// What the queries of a report answered.
struct ReportData {
    std::map<std::string, std::string> parameters; ///< by upper-case name
    std::map<std::string, ado::ResultSet> queries; ///< by name; all answers of a query that was asked several times
};

/// Is shown every connection before it is opened, for a trace of what is sent.
using OnConnect = std::function<void(ado::Connection&)>;

/// Asks the queries of a report one after another, each with the log-on of the table that stands in its place. Throws
/// ado::Error, also for a value that would end the quotes around it, and when the first query answers nothing.
ReportData readData(const ReportFile& file, const report::Report& report, const OnConnect& onConnect);

} // namespace opd::adapters::reporting
