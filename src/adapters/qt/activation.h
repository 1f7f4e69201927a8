#pragma once

#include <QObject>

class QWidget;

namespace opd::qt {

/// True for a window or a message box of the desk.
bool isOwnWindow(const QWidget& widget);

/// The one of them that the clerk is to work in, or null.
QWidget* topWindow();

/// Keeps the window on top the active one. Without a window manager nobody else does that when a window opens or
/// closes.
class Activation final : public QObject {
    Q_OBJECT

  public:
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace opd::qt
