#include "adapters/qt/waiting.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QThread>
#include <QTimer>

namespace opd::qt {

Waiting::Waiting() {
    qApp->installEventFilter(this);
}

void Waiting::draw() {
    if (QThread::currentThread() != thread() || m_drawing)
        return;
    if (!m_pointerShows)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    m_pointerShows = true;
    const QScopedValueRollback drawing(m_drawing, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

void Waiting::over() {
    if (QThread::currentThread() != thread() || !m_pointerShows)
        return;
    m_pointerShows = false;
    QApplication::restoreOverrideCursor();
}

// A timer that is held back goes on running and fires an interval later.
bool Waiting::eventFilter(QObject* object, QEvent* event) {
    if (!m_drawing)
        return false;
    if (event->type() == QEvent::Close)
        event->ignore();
    return event->type() == QEvent::Close ||
           (event->type() == QEvent::Timer && qobject_cast<QTimer*>(object) != nullptr);
}

} // namespace opd::qt
