#pragma once

#include "adapters/report/data_reader.h"
#include "base/clock/date_time.h"

#include <kainjow/mustache.hpp>

namespace opd::adapters::reporting {

/// What the layout of a report can name, all names in upper case: the header texts, the parameters, who prints and
/// when, and for each query its columns or its list of rows. A column is empty where it is null, blank, false or the
/// number 0, so that a part of the layout can depend on it; a moment has its "_DATE" and its "_TIME" beside it.
kainjow::mustache::data templateData(const ReportFile& file, const report::Report& report, const ReportData& data,
                                     const DateTime& now);

/// The layout, whose names may be written in any letter case, with the data in it: every value as text that cannot
/// become markup, a control character as a blank. Throws std::runtime_error when the layout is broken.
std::string rendered(const std::string& layout, const kainjow::mustache::data& data);

} // namespace opd::adapters::reporting
