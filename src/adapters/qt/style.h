#pragma once

#include "platform/ui/window.h"

#include <QWidget>

class QApplication;

namespace opd::qt {

/// The look that all windows share; for an application that is this module's own.
void dress(QApplication& application);

/// The look of one window: colours, focus and read-only fields, the default button.
void dress(QWidget& shell, const ui::Window& window);

} // namespace opd::qt
