#include "adapters/qt/held_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace opd::qt {

namespace {

/// What lies between the release and the press of a repeated key, at most, in milliseconds. A display sends both, and
/// the toolkit does not always see that they belong together.
constexpr quint64 ofOneRepeat = 2;

} // namespace

bool HeldKeys::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyRelease) {
        m_released = key.key();
        m_when = key.timestamp();
        return false;
    }
    const bool isRepeated = key.key() == m_released && key.timestamp() != 0 && key.timestamp() - m_when <= ofOneRepeat;
    return (key.isAutoRepeat() || isRepeated) &&
           qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
}

} // namespace opd::qt
