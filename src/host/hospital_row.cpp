#include "host/hospital_row.h"

#include "ado/error.h"
#include "ado/recordset.h"
#include "base/text/text.h"
#include "data/statements.h"
#include "host/hospital_connection.h"
#include "session/feature_flags.h"

#include <algorithm>
#include <stdexcept>

namespace opd::host {

namespace {

ado::Recordset rowOf(ado::Connection& connection) {
    ado::Recordset row = connection.Execute(data::statements::hospitalInfo(), ado::Effect::Reads);
    if (row.EndOfFile())
        throw std::runtime_error("The hospital has no row of settings.");
    return row;
}

void change(ado::Connection& connection, const ado::Statement& update) {
    try {
        connection.Execute(update);
    } catch (const ado::Error& error) {
        if (error.number() != mayNot)
            throw;
        throw std::runtime_error("This login may read the hospital's settings and not change them. Name one that may: "
                                 "--user LOGIN --password-stdin.");
    }
}

ado::Statement updateOf(const std::string& column) {
    return ado::Statement("Update Patient_Data..tbHospitalInfo set ").identifier(column).text(" = ");
}

/// A text as a server reads it, in which two apostrophes stand for one.
ado::Statement& addText(ado::Statement& statement, const std::string& text) {
    std::vector<std::string> pieces{""};
    for (const char character : text)
        if (character == '\'')
            pieces.emplace_back();
        else
            pieces.back() += character;
    return statement.text("'").values(pieces, "''").text("'");
}

} // namespace

std::vector<std::pair<std::string, bool>> flagsOf(ado::Connection& connection) {
    const ado::Recordset row = rowOf(connection);
    std::vector<std::pair<std::string, bool>> flags;
    flags.reserve(featureFlags.size());
    for (const FeatureFlag& flag : featureFlags)
        flags.emplace_back(flag.column, row.Fields(flag.column).asFlag());
    return flags;
}

std::string columnOfFlag(const std::string& name) {
    const auto found = std::find_if(featureFlags.begin(), featureFlags.end(), [&](const FeatureFlag& flag) {
        return text::equalsIgnoringCase(flag.column, name);
    });
    if (found == featureFlags.end())
        throw std::runtime_error("There is no flag \"" + name + "\"; \"opd-desk flag\" lists them.");
    return found->column;
}

// A statement that writes names the row: as the one whose column holds something else.
void setFlag(ado::Connection& connection, const std::string& name, bool on) {
    const std::string column = columnOfFlag(name);
    const bool isNull = rowOf(connection).Fields(column).isNull();
    ado::Statement update = updateOf(column).number(on ? 1 : 0).text(" where ").identifier(column);
    change(connection, isNull ? update.text(" is null") : update.text(" <> ").number(on ? 1 : 0));
}

std::string textIn(ado::Connection& connection, const std::string& column) {
    return rowOf(connection).Fields(column).asText();
}

void setText(ado::Connection& connection, const std::string& column, const std::string& text) {
    const bool isNull = rowOf(connection).Fields(column).isNull();
    ado::Statement update = updateOf(column);
    addText(update, text).text(" where ").identifier(column);
    change(connection, isNull ? update.text(" is null") : update.text(" is not null"));
}

} // namespace opd::host
