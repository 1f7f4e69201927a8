#pragma once

#include "registration/form_context.h"

#include <string>

namespace opd::registration {

/// Binds what the status line says: what a save still needs, and which keys help at the field that has the focus.
void bindGuidance(FormContext& form);

/// What of the form's registration stands in the database: its numbers. Empty while nothing does.
std::string storedOutcome(const FormContext& form);

/// Brings the age in months beside the years up to date; the change of the birth date does so by itself.
void showAgeInMonths(FormContext& form);

/// How old an infant is beside the whole years: "11 days", "1 month", "17 months". Empty from two years on, and while
/// either date is none.
std::string ageInMonths(const std::string& birthDate, const DateTime& day);

} // namespace opd::registration
