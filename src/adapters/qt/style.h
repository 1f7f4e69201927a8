#pragma once

class QApplication;
class QWidget;

namespace opd::qt {

/// Gives an application the look of the desk. Once per process, before the first window.
void dress(QApplication& application);

/// Gives it to one window: colours and style sheet, whatever those of the application are.
void dress(QWidget& window);

/// Gives the colours to what has come into a window since then.
void colour(QWidget& window);

} // namespace opd::qt
