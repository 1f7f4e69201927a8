#pragma once

#include "ports/settings/store.h"

namespace opd::data {

/// The section of the workstation user's settings that says how the desk saves.
inline constexpr const char* savingSection = "Saving";

/// Whether a save of an opened visit first looks what other desks have stored meanwhile. It does unless the setting
/// "WatchOtherDesks" is "no". Throws std::runtime_error when the settings cannot be read.
bool watchesOtherDesks(const settings::Store& settings);

} // namespace opd::data
