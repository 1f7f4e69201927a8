#pragma once

#include <QObject>

namespace opd::qt {

/// Keeps the window on top the active one. Without a window manager nobody else does that when a window opens or
/// closes.
class Activation final : public QObject {
    Q_OBJECT

  public:
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace opd::qt
