#pragma once

#include "ui/keys.h"

#include <Qt>

#include <optional>

class QKeyEvent;

namespace opd::qt {

/// What a key event means to a window's model; nothing for keys that no model looks at and for characters with keys
/// held down that make no shortcut. A character is the one on the key when Ctrl or Alt is held down.
std::optional<ui::KeyStroke> strokeOf(const QKeyEvent& event);

/// The toolkit's code of the key of a stroke.
Qt::Key codeOf(const ui::KeyStroke& stroke);

} // namespace opd::qt
