#pragma once

#include "ports/settings/store.h"

namespace opd::data {

/// The section of the workstation user's settings that says how the desk saves.
inline constexpr const char* savingSection = "Saving";

/// Whether a save of an opened visit or of a patient on file first looks what other desks have stored meanwhile. It
/// does unless the setting "WatchOtherDesks" is "no". Throws std::runtime_error when the settings cannot be read.
bool watchesOtherDesks(const settings::Store& settings);

/// Whether a save of a patient on file looks whether another desk has registered the patient today since the form was
/// opened, and refuses then. It does when the setting "OneVisitADay" is "yes". Throws std::runtime_error likewise.
bool allowsOneVisitADay(const settings::Store& settings);

} // namespace opd::data
