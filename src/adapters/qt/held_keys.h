#pragma once

#include <QObject>

namespace opd::qt {

/// Lets no message be answered by a key that is held down since before it could be read.
class HeldKeys final : public QObject {
  public:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    int m_released = 0; ///< the key that was released last, or repeated
    quint64 m_when = 0;
};

} // namespace opd::qt
