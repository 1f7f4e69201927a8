#pragma once

#include "script/driver.h"

#include <string>

namespace opd::script {

/// The key stroke of a name such as "Enter", "Shift+Tab", "Alt+R", "Ctrl+PageDown" or "a". Throws std::runtime_error
/// for a name that is no key.
KeyStroke keyStroke(const std::string& name);

} // namespace opd::script
