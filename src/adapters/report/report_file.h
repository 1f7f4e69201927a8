#pragma once

#include "ports/report/document.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace opd::adapters::reporting {

/// One of a report's questions to the database.
struct Query {
    std::string name;
    bool manyRows = false;            ///< the layout sees all rows as a list, otherwise the columns of the first one
    std::vector<std::string> forEach; ///< asked once for each of these values that is not blank
    std::string statement;            ///< "{name}" in it stands for a parameter or for a column of a query before it
};

/// What is to be read for the values of a column: "F" is "Female".
struct ValueTexts {
    std::string query;
    std::string column;
    std::map<std::string, std::string> texts;
};

/// A report file as it is written (see docs/reports.md).
struct ReportFile {
    std::string title;
    report::Paper paper;
    report::Margins margins;
    bool shrinksToFit = false;
    std::vector<std::string> parameters;
    std::vector<Query> queries;
    std::vector<ValueTexts> values;
    std::string style;
    std::string head;
    std::string body;
    std::string foot;
};

/// Reads a report file. Throws std::runtime_error with file and line when it cannot be read or is not written as a
/// report file is.
ReportFile readReportFile(const std::filesystem::path& file);

} // namespace opd::adapters::reporting
