#include "adapters/qt/waiting.h"

#include "adapters/qt/basics/input_events.h"
#include "adapters/qt/style.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

namespace opd::qt {

namespace {

/// The active window; that of another program may be active meanwhile. Null when none is open.
QWidget* windowOfClerk() {
    if (QWidget* const active = QApplication::activeWindow())
        return active;
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible())
            return window;
    return nullptr;
}

} // namespace

Waiting::~Waiting() = default;

bool Waiting::draw(bool offersStop) {
    if (QThread::currentThread() != thread() || m_drawing)
        return true;
    if (!m_pointerShows)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    m_pointerShows = true;
    if (offersStop && m_box == nullptr)
        showBox();
    const QScopedValueRollback drawing(m_drawing, true);
    // Input stays where it is as long as there is nothing to be said by it.
    QEventLoop::ProcessEventsFlags left = QEventLoop::ExcludeSocketNotifiers;
    if (m_box == nullptr)
        left |= QEventLoop::ExcludeUserInputEvents;
    QCoreApplication::processEvents(left);
    return !std::exchange(m_stopped, false);
}

void Waiting::over() {
    if (QThread::currentThread() != thread() || !m_pointerShows)
        return;
    m_pointerShows = false;
    m_stopped = false;
    delete m_box;
    QApplication::restoreOverrideCursor();
    for (auto& [receiver, event] : std::exchange(m_typedMeanwhile, {}))
        if (receiver != nullptr)
            QCoreApplication::postEvent(receiver, event.release());
}

/// The box is a part of the window: it takes no focus from the field that the clerk is in. Where no window is open yet
/// it is one itself.
void Waiting::showBox() {
    QWidget* const window = windowOfClerk();
    m_box = new QFrame(window, window == nullptr ? Qt::CustomizeWindowHint | Qt::WindowTitleHint : Qt::WindowFlags());
    m_box->setObjectName(QStringLiteral("waitingBox"));
    m_box->setWindowTitle(QStringLiteral("OPD Registration System"));
    if (window == nullptr)
        dress(*m_box);
    m_box->setFrameShape(QFrame::StyledPanel);
    m_box->setAutoFillBackground(true);
    auto* const text = new QLabel(QStringLiteral("The database has not answered yet.\nWaiting goes on. Esc or the "
                                                 "button stops it; nothing is changed by that."));
    auto* const stop = new QPushButton(QStringLiteral("Stop waiting (Esc)"));
    stop->setFocusPolicy(Qt::NoFocus);
    QObject::connect(stop, &QPushButton::clicked, this, [this] { m_stopped = true; });
    auto* const layout = new QVBoxLayout(m_box);
    layout->setContentsMargins(24, 18, 24, 18);
    layout->setSpacing(14);
    layout->addWidget(text);
    layout->addWidget(stop, 0, Qt::AlignRight);
    m_box->adjustSize();
    const QRect around = window != nullptr ? window->rect() : m_box->screen()->availableGeometry();
    m_box->move(around.center() - m_box->rect().center());
    m_box->raise();
    m_box->show();
}

bool Waiting::isForBox(const QObject* window, const QEvent& event) const {
    if (!isOfMouseButton(event.type()) || m_box == nullptr || m_box->window()->windowHandle() != window)
        return false;
    return m_box->isWindow() || m_box->geometry().contains(static_cast<const QMouseEvent&>(event).position().toPoint());
}

/// Keeps input of a window for later. Esc answers the box.
bool Waiting::takesInput(QObject* window, QEvent& event) {
    if (isForBox(window, event))
        return false;
    const bool isEscape = isOfKey(event.type()) && static_cast<QKeyEvent&>(event).key() == Qt::Key_Escape;
    if (isEscape && m_box != nullptr)
        m_stopped = m_stopped || event.type() == QEvent::KeyPress;
    else
        m_typedMeanwhile.emplace_back(window, event.clone());
    return true;
}

// A timer that is held back goes on running and fires an interval later.
bool Waiting::eventFilter(QObject* object, QEvent* event) {
    if (!m_drawing)
        return false;
    const QEvent::Type type = event->type();
    if (type == QEvent::ShortcutOverride) // so that it comes as a key, which can be kept
        event->accept();
    else if (type == QEvent::Close)
        event->ignore();
    else if (isOfKey(type) || isOfMouseButton(type))
        return object->isWindowType() && takesInput(object, *event);
    else
        return type == QEvent::Wheel || (type == QEvent::Timer && qobject_cast<QTimer*>(object) != nullptr);
    return true;
}

} // namespace opd::qt
