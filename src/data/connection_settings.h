#pragma once

#include "session/session.h"

#include <string>

namespace opd::data {

/// The application and section of the workstation user's settings that hold the connection.
inline constexpr const char* settingsApplication = "QUORIN Current User";
inline constexpr const char* connectionSection = "Connection";

/// True when a setting of the workstation's user holds this word, in any letter case. Throws std::runtime_error when
/// the settings cannot be read.
bool holdsWord(const settings::Store& settings, const char* section, const char* key, const char* word);

/// A connection setting, read afresh: kind 1 the user, 2 the password, 3 the server, 4 the connection string for the
/// catalog, 5 an empty text. Throws std::out_of_range ("Subscript out of range") for any other kind.
std::string connStr(const settings::Store& settings, int kind, const std::string& catalog);

/// Opens the shared connection anew with the module's own connection string. Throws ado::Error.
void LoadConnection(Session& session);

} // namespace opd::data
