#pragma once

#include "ui/control.h"

#include <QString>

namespace opd::qt {

/// The name of the widget that shows a control: "txtPersonal(0)" is shown by "txtPersonal_0".
QString widgetName(const ui::Control& control);

/// The name of the label beside a field.
QString labelName(const ui::Control& control);

/// True for a field whose caption stands in a label beside it.
bool hasLabel(const ui::Control& control);

} // namespace opd::qt
