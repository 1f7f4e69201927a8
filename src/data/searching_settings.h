#pragma once

#include "ports/settings/store.h"

namespace opd::data {

/// The section of the workstation user's settings that says how the desk searches.
inline constexpr const char* searchingSection = "Searching";

/// Whether sex and birth date of a search go into the form of the new patient that it leads to. They do only when the
/// setting "CarrySexAndBirthDate" is "yes". Throws std::runtime_error when the settings cannot be read.
bool carriesSexAndBirthDate(const settings::Store& settings);

} // namespace opd::data
