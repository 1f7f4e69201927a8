#include "adapters/qt/held_keys.h"

#include "adapters/qt/activation.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>

namespace opd::qt {

namespace {

/// What lies between the release and the press of a repeated key, at most, in milliseconds. A display sends both, and
/// the toolkit does not always see that they belong together.
constexpr quint64 ofOneRepeat = 2;

/// A key that opens or leaves windows, or prints.
bool leadsOn(int key) {
    return key == Qt::Key_Escape || (key >= Qt::Key_F1 && key <= Qt::Key_F35);
}

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
    const bool follows = key.key() == m_released && key.timestamp() != 0 && key.timestamp() - m_when <= ofOneRepeat;
    const QWidget* const modal = QApplication::activeModalWidget();
    const QWidget* const window = modal != nullptr ? modal : QApplication::activeWindow();
    if ((!key.isAutoRepeat() && !follows) || window == nullptr || !isOwnWindow(*window))
        return false;
    return leadsOn(key.key()) || qobject_cast<const QMessageBox*>(window) != nullptr;
}

} // namespace opd::qt
