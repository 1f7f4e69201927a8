#pragma once

#include "session/session.h"

#include <string>

namespace opd::data {

/// The database server's date and time. Throws ado::Error.
DateTime GetServerDate(const Session& session);

/// Sets the reference date of ages and date rules from the server. When that fails it quietly keeps its earlier value.
void LoadServerDate(Session& session);

/// True when the text is a date within the bounds. A bound that is blank or no date is no bound. A blank date, or the
/// empty mask "  /  /    ", gives `blankAllowed`.
bool IsDateInRange(const std::string& date, const std::string& lower, const std::string& upper,
                   bool blankAllowed = false);

/// Whole years from the birth date to the server date: days divided by 365.25, rounded down; negative for a birth date
/// in the future, 0 for a text that is no date. The reference date that callers pass plays no part.
int ComputeAge(const Session& session, const std::string& birthDate, const std::string& referenceDate);

} // namespace opd::data
