#pragma once

#include <QWidget>

class QApplication;

namespace opd::qt {

/// The look that all windows share; for an application that is this module's own.
void dress(QApplication& application);

/// The look of one window: groups, fields with and without the focus, primary and lookup buttons.
void dress(QWidget& shell);

} // namespace opd::qt
