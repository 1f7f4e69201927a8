#pragma once

#include <QWidget>

#include <string>

namespace opd::qt {

/// Fills an empty widget with the form of a window. False when there is no form of that name.
bool buildForm(const std::string& windowName, QWidget& shell);

} // namespace opd::qt
