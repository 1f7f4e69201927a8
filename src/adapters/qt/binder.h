#pragma once

#include "adapters/qt/views/control_view.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace opd::qt {

/// What a form lacks or has too much, a line each, when its widgets are compared with the controls of a window: a
/// control without a widget of its name and kind, a field's label that is missing, a named widget that shows nothing.
QStringList differences(const ui::Window& window, const QWidget& form);

/// A view for each control of the window that the form has a widget for. Differences go to the log.
std::vector<std::unique_ptr<ControlView>> bind(ui::Window& window, QWidget& form);

} // namespace opd::qt
