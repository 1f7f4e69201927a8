#include "adapters/qt/type_ahead.h"

#include "adapters/qt/activation.h"
#include "adapters/qt/basics/input_events.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScopedValueRollback>

#include <utility>

namespace opd::qt {

namespace {

/// How long a window may take to become the active one, in milliseconds. Nobody else has the keyboard that long.
constexpr int patience = 700;

/// What nothing must come of while the way to a window is being cleared.
bool isLeftOut(const QObject& object, QEvent::Type type) {
    if (isOfMouseButton(type))
        return object.isWindowType();
    switch (type) {
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::Close:
    case QEvent::Wheel:
        return true;
    case QEvent::Timer:
        return qobject_cast<const QTimer*>(&object) != nullptr;
    default:
        return false;
    }
}

} // namespace

TypeAhead::TypeAhead() {
    m_catcher.setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    m_catcher.setGeometry(-8, -8, 1, 1);
    m_catcher.show();
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    QObject::connect(&m_patience, &QTimer::timeout, this, [this] {
        if (QApplication::activeWindow() == nullptr)
            m_typed.clear(); // the clerk has gone elsewhere
        end();
    });
}

TypeAhead::~TypeAhead() {
    if (m_between)
        m_catcher.setKeyboardGrabEnabled(false);
}

/// The keyboard of another program's user is left alone.
void TypeAhead::begin() {
    const QWidget* const top = topWindow();
    if (!m_between && m_typed.empty() && QGuiApplication::focusWindow() == nullptr)
        return;
    // Not stood in the way of by what is modal.
    m_catcher.setTransientParent(top == nullptr ? nullptr : top->windowHandle());
    m_catcher.setKeyboardGrabEnabled(true);
    m_between = true;
    m_patience.start();
}

void TypeAhead::end() {
    if (!std::exchange(m_between, false))
        return;
    m_patience.stop();
    m_catcher.setKeyboardGrabEnabled(false);
    QTimer::singleShot(0, this, [this] { handOn(); });
}

void TypeAhead::takeIn() {
    begin();
    if (!m_between || m_takesIn)
        return;
    const QScopedValueRollback takingIn(m_takesIn, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
}

/// One key at a time: each may open or close a window.
void TypeAhead::handOn() {
    if (m_typed.empty() || m_between)
        return;
    QWidget* const window = QApplication::activeWindow();
    if (window == nullptr || window->windowHandle() == nullptr) {
        begin();
        return;
    }
    if (qobject_cast<QMessageBox*>(window) != nullptr) {
        m_typed.clear();
        return;
    }
    const std::unique_ptr<QKeyEvent> key = std::move(m_typed.front());
    m_typed.pop_front();
    QTimer::singleShot(0, this, [this] { handOn(); });
    const QScopedValueRollback handedOn(m_handedOn, static_cast<const QEvent*>(key.get()));
    QCoreApplication::sendEvent(window->windowHandle(), key.get());
}

bool TypeAhead::keeps(const QObject& object, const QEvent& event) const {
    return isOfKey(event.type()) && object.isWindowType() && &event != m_handedOn &&
           (&object == &m_catcher || m_takesIn || !m_typed.empty() ||
            (m_between && !static_cast<const QWindow&>(object).isVisible()));
}

bool TypeAhead::eventFilter(QObject* object, QEvent* event) {
    if (keeps(*object, *event)) {
        m_typed.emplace_back(static_cast<QKeyEvent*>(event->clone()));
        return true;
    }
    const QEvent::Type type = event->type();
    if (m_takesIn && type == QEvent::ShortcutOverride) // so that it comes as a key
        event->accept();
    if (m_takesIn && isLeftOut(*object, type))
        return true;
    if (!object->isWidgetType() || !isOwnWindow(static_cast<QWidget&>(*object)))
        return false;
    if (type == QEvent::Show || type == QEvent::Hide)
        begin();
    else if (type == QEvent::WindowActivate && object == topWindow())
        end();
    return false;
}

} // namespace opd::qt
