#include "ado/error.h"
#include "ado/recordset.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "host/history_words.h"
#include "host/hospital_connection.h"

#include <fmt/core.h>

#include <stdexcept>

namespace opd::host {

namespace {

constexpr std::size_t hospNumLength = 8;
constexpr std::size_t secondsLength = 3; ///< ":09"

/// A number that is written without its zeros gets them back.
std::string hospNumOf(const std::string& written) {
    const std::string number = text::trimmed(written);
    const bool isNumber = number.find_first_not_of("0123456789") == std::string::npos;
    const std::size_t zeros = isNumber && number.size() < hospNumLength ? hospNumLength - number.size() : 0;
    return std::string(zeros, '0') + number;
}

ado::Recordset changesOf(ado::Connection& connection, const std::string& hospNum) {
    ado::Recordset changes;
    changes.CursorLocation = ado::CursorLocation::Client;
    try {
        changes.Open(ado::Statement("Select AuditID, IDNum, ChangedAt, UserID, Login, Workstation, What, OldValue, "
                                    "NewValue from Patient_Data..tbMasterAudit where HospNum = '")
                         .value(hospNum)
                         .text("' order by AuditID desc"),
                     connection);
    } catch (const ado::Error& error) {
        if (error.number() == noSuchTable)
            throw std::runtime_error("This server keeps no record of changes: its table tbMasterAudit is missing. The "
                                     "script 16-audit.sql makes it; what was saved before is not in it.");
        if (error.number() == mayNot)
            throw std::runtime_error("This login may not read the record of changes. Name one that is a member of the "
                                     "role opd_audit: --user LOGIN --password-stdin.");
        throw;
    }
    return changes;
}

/// Who saved what, when and where; the same for all that one save changed.
std::string headingOf(const ado::Recordset& change) {
    const std::string user = change.Fields("UserID").asText(), login = change.Fields("Login").asText();
    std::string heading = dateTimeText(change.Fields("ChangedAt").asDate());
    heading.resize(heading.size() - secondsLength); // one save may take two of them
    heading += "  " + (text::isBlank(user) ? login : user) + " at " + change.Fields("Workstation").asText();
    if (!text::isBlank(user) && user != login)
        heading += " (login " + login + ")";
    return heading + ", visit " + change.Fields("IDNum").asText();
}

void print(ado::Connection& connection, ado::Recordset changes) {
    std::string heading;
    for (; !changes.EndOfFile(); changes.MoveNext()) {
        if (const std::string its = headingOf(changes); its != heading) {
            fmt::print("{}{}\n", heading.empty() ? "" : "\n", its);
            heading = its;
        }
        const std::string what = changes.Fields("What").asText();
        if (what == "registered") {
            fmt::print("  registered as a new patient\n");
            continue;
        }
        const auto shown = [&](const char* column) {
            return valueInWords(connection, what, changes.Fields(column).asText());
        };
        fmt::print("  {:<28}{} -> {}\n", columnInWords(what), shown("OldValue"), shown("NewValue"));
    }
}

} // namespace

void history(const HistoryOptions& options) {
    const std::string hospNum = hospNumOf(options.hospNum);
    HospitalConnection hospital(options);
    ado::Connection& connection = hospital.connection();
    ado::Recordset changes = changesOf(connection, hospNum);
    if (changes.EndOfFile())
        throw std::runtime_error("No change of patient " + hospNum + " is on record.");
    print(connection, std::move(changes));
}

} // namespace opd::host
