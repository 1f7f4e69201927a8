#pragma once

#include "ado/connection.h"

#include <string>

/// How the record of changes is shown to somebody who does not know the database.
namespace opd::host {

/// A column as the registration form calls it; its own name where it has no word.
std::string columnInWords(const std::string& column);

/// A value of the column on one line: a code with what it stands for, a day as MM/dd/yyyy, "(nothing)" for a blank one.
/// Names of codes are asked of the reference files; where they cannot be read, the code stands alone.
std::string valueInWords(ado::Connection& connection, const std::string& column, const std::string& value);

} // namespace opd::host
