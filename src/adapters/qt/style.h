#pragma once

class QApplication;
class QWidget;

namespace opd::qt {

/// Gives an application the look of the desk. Once per process, before the first window.
void dress(QApplication& application);

/// Gives it to one window and all that it has, whatever the application looks like.
void dress(QWidget& window);

} // namespace opd::qt
