#pragma once

#include "ui/keys.h"

class QPoint;
class QWidget;

/// Raw input as a keyboard and a mouse give it, sent to the native window of a widget so that it takes the whole road.
namespace opd::qt::hands {

/// Presses and releases a key in a window.
void press(QWidget& window, const ui::KeyStroke& key);

/// Clicks with the left button at a point of a widget, which is scrolled into sight as a clerk would do.
void click(QWidget& widget, const QPoint& point);
void doubleClick(QWidget& widget, const QPoint& point);

/// Returns when the window is the active one, or after a short time where nothing ever becomes active.
void waitUntilActive(QWidget& window);

/// Handles what is waiting to be handled.
void settle();

} // namespace opd::qt::hands
