#pragma once

#include "ado/connection.h"

#include <string>
#include <utility>
#include <vector>

/// The hospital's one row of settings (`tbHospitalInfo`), over the connection that desks use. Every function throws
/// ado::Error, and std::runtime_error with one clear message.
namespace opd::host {

/// The hospital's optional behaviours and whether they are on.
std::vector<std::pair<std::string, bool>> flagsOf(ado::Connection& connection);

/// The column of one, named in any letter case.
std::string columnOfFlag(const std::string& name);

/// Turns one on or off; the name in any letter case.
void setFlag(ado::Connection& connection, const std::string& name, bool on);

/// What a text column holds; empty where it holds nothing.
std::string textIn(ado::Connection& connection, const std::string& column);
void setText(ado::Connection& connection, const std::string& column, const std::string& text);

} // namespace opd::host
