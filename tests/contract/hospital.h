#pragma once

#include "ado/command.h"
#include "ado/error.h"
#include "ado/recordset.h"
#include "base/clock/date_time.h"
#include "support/sql.h"

#include <memory>
#include <string>
#include <vector>

namespace opd::tests {

inline constexpr DateTime generationDay{2026, 6, 30, 0, 0, 0}; ///< the generated hospital's own day
inline constexpr DateTime morning{2026, 7, 1, 10, 30, 15};     ///< and the one on which it is used

/// The visit of the generated hospital that has a bill already.
inline constexpr const char* billedVisit = "2600000001B";
inline constexpr double billedAmount = 1234.5;

/// A database that tests reach through connections alone. It holds the patients and lists of a generated hospital and
/// the bill of a visit, and its own clock stands still in the morning.
///
/// A server as hospitals have them (`isReal`) differs: its clock runs and is not set, one hospital serves all tests of
/// a run, so that each leaves the generated patients as they are and writes under numbers of its own, and errors that
/// the desk does not tell apart have numbers of the server's own.
class Hospital {
  public:
    virtual ~Hospital() = default;
    virtual std::unique_ptr<ado::Connection> connect() = 0;
    virtual void setClock(const DateTime& moment) = 0;
    virtual bool isReal() const { return false; }
    virtual bool takesBatches() const { return true; } ///< several statements in one text
};

/// The rows of a statement as texts, null as "-", columns parted by "|".
inline std::vector<std::string> rowsOf(ado::Connection& connection, const std::string& statement) {
    ado::Recordset recordset;
    recordset.CursorLocation = ado::CursorLocation::Client;
    recordset.Open(sql(statement), connection, ado::CursorType::Dynamic, ado::LockType::ReadOnly);
    std::vector<std::string> result;
    for (const auto& row : recordset.all().rows) {
        std::string line;
        for (const ado::Value& value : row)
            line += (line.empty() ? "" : "|") + (value.isNull() ? std::string{"-"} : value.asText());
        result.push_back(line);
    }
    return result;
}

/// The error that a statement raises, as "SQLSTATE/number"; empty when it raises none.
inline std::string errorOf(ado::Connection& connection, const std::string& statement) {
    try {
        connection.Execute(sql(statement));
    } catch (const ado::Error& error) {
        return error.what() == std::string{} ? "no message" : error.sqlState() + "/" + std::to_string(error.number());
    }
    return {};
}

/// A number drawn through a command.
inline std::string drawn(ado::Connection& connection, const std::string& procedure, const std::string& output,
                         int size) {
    ado::Command command(connection);
    command.CommandText = sql(procedure);
    command.addOutput(output, size);
    command.Execute();
    return command.output(0).asText();
}

inline std::string newHospNum(ado::Connection& connection) {
    return drawn(connection, "Patient_Data..sp_adm_GetNewHospNum", "@HospNum", 8);
}

inline std::string newOpdNumber(ado::Connection& connection) {
    return drawn(connection, "Patient_Data..sp_aopd_GetNewOPDID", "@IdNum", 10);
}

} // namespace opd::tests
