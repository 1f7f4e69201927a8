#pragma once

#include <QObject>

namespace opd::qt {

/// Lets a key that is held down do once what it does: no message is answered by one that was pressed before it could be
/// read, one Esc leaves one window, and Shift+F7 prints one label.
class HeldKeys final : public QObject {
  public:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    int m_released = 0; ///< the key that was released last, or repeated
    quint64 m_when = 0;
};

} // namespace opd::qt
