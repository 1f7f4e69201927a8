#pragma once

#include "ports/report/document.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace opd::report {

/// How a table of a report gets at its data.
struct LogOn {
    std::string server;
    std::string database;
    std::string user; ///< empty asks for integrated security
    std::string password;
};

struct Table {
    std::string name;
    LogOn logOn = {};
};

struct ParameterField {
    std::string name;
    std::string value = {};
};

/// An opened report. Whoever opened it sets what it is to be made with, and then asks for the document.
class Report {
  public:
    virtual ~Report() = default;

    std::string heading;    ///< the first of the report's two header texts
    std::string subheading; ///< and the second
    std::string printedBy;  ///< the user who asks for it
    std::vector<Table> tables;
    std::vector<ParameterField> parameterFields; ///< in their order

    /// Reads the data and puts it into the report's layout. Throws ado::Error when the data cannot be read and
    /// std::runtime_error when the layout is broken.
    virtual Document document() const = 0;
};

/// What knows the format of report files.
class Engine {
  public:
    virtual ~Engine() = default;

    /// Opens a report file; the file is not needed afterwards. Throws std::runtime_error when it cannot be read or is
    /// no report.
    virtual std::unique_ptr<Report> open(const std::filesystem::path& file) const = 0;
};

} // namespace opd::report
