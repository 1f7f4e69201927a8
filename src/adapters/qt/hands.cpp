#include "adapters/qt/hands.h"

#include "adapters/qt/basics/key_codes.h"
#include "adapters/qt/scroll_page.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <QWindow>

// What a platform plugin hands over: the library's own road for input that nobody typed, exported but in no header. An
// event sent to a window directly would pass by the shortcuts, the pop-up lists and the counting of clicks.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool repeated, ushort count);
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons held, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers modifiers, int timestamp);
QT_END_NAMESPACE

namespace opd::qt::hands {

namespace {

constexpr int longerThanADoubleClick = 1000; // milliseconds

Qt::KeyboardModifiers modifiersOf(const ui::KeyStroke& key) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, key.shift);
    modifiers.setFlag(Qt::ControlModifier, key.control);
    modifiers.setFlag(Qt::AltModifier, key.alt);
    return modifiers;
}

/// What a keyboard sends along as text: none with Ctrl, a control character for some named keys.
QString textOf(const ui::KeyStroke& key) {
    if (key.control)
        return {};
    switch (key.key) {
    case ui::Key::Character:
        return QString::fromUcs4(&key.character, 1);
    case ui::Key::Enter:
        return QStringLiteral("\r");
    case ui::Key::Escape:
        return QStringLiteral("\x1b");
    case ui::Key::Backspace:
        return QStringLiteral("\b");
    default:
        return {};
    }
}

/// Clicks that are counted together, each apart from the ones before. A handler may take the window away.
void clickTimes(int times, QWidget& widget, const QPoint& point) {
    static int now = 0; // what the events say, so that nobody has to wait
    now += longerThanADoubleClick;
    scrollIntoSight(widget);
    const QPoint local = widget.mapTo(widget.window(), point);
    const QPoint global = widget.mapToGlobal(point);
    const QPointer<QWindow> native(widget.window()->windowHandle());
    for (int event = 0; event < 2 * times && native; ++event) {
        const bool down = event % 2 == 0;
        qt_handleMouseEvent(native, local, global, down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                            down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, {}, now);
    }
    QCoreApplication::processEvents();
}

} // namespace

void press(QWidget& window, const ui::KeyStroke& key) {
    const QPointer<QWindow> native(window.windowHandle());
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        if (native)
            qt_handleKeyEvent(native, type, codeOf(key), modifiersOf(key), textOf(key), false, 1);
}

void click(QWidget& widget, const QPoint& point) {
    clickTimes(1, widget, point);
}

void doubleClick(QWidget& widget, const QPoint& point) {
    clickTimes(2, widget, point);
}

void waitUntilActive(QWidget& window) {
    settle();
    if (window.isActiveWindow())
        return;
    window.activateWindow();
    // The toolkit's own waiting would delete windows that are unloaded while a handler of theirs still runs.
    const QPointer<QWidget> awaited(&window);
    for (QDeadlineTimer patience(300); awaited && !awaited->isActiveWindow() && !patience.hasExpired();
         QThread::msleep(5))
        QCoreApplication::processEvents();
    settle();
}

void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace opd::qt::hands
