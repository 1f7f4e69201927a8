#pragma once

#include "ports/settings/store.h"

namespace opd::data {

/// The section of the workstation user's settings that says how the desk is typed into.
inline constexpr const char* entrySection = "Entry";

/// Whether fields with a known number of places go on by themselves when the last one is typed. They do not unless the
/// setting "QuickEntry" is "yes". Throws std::runtime_error when the settings cannot be read.
bool entersQuickly(const settings::Store& settings);

} // namespace opd::data
