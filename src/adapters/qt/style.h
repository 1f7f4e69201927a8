#pragma once

class QWidget;

namespace opd::qt {

/// Gives the application the look of the desk. Once per process, before the first window.
void dressApplication();

/// Gives it to one window and all that it has, whatever the application looks like.
void dress(QWidget& window);

} // namespace opd::qt
