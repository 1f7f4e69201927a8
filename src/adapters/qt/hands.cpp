#include "adapters/qt/hands.h"

#include "adapters/qt/scroll_page.h"
#include "base/text/text.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QKeySequence>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <QWindow>

#include <map>
#include <stdexcept>

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

Qt::Key namedKey(const std::string& name) {
    static const std::map<std::string, Qt::Key> keys{
        {"Enter", Qt::Key_Return},      {"Tab", Qt::Key_Tab},
        {"Escape", Qt::Key_Escape},     {"Backspace", Qt::Key_Backspace},
        {"Delete", Qt::Key_Delete},     {"Home", Qt::Key_Home},
        {"End", Qt::Key_End},           {"Up", Qt::Key_Up},
        {"Down", Qt::Key_Down},         {"Left", Qt::Key_Left},
        {"Right", Qt::Key_Right},       {"PageUp", Qt::Key_PageUp},
        {"PageDown", Qt::Key_PageDown}, {"Space", Qt::Key_Space},
        {"Insert", Qt::Key_Insert},
    };
    if (const auto found = keys.find(name); found != keys.end())
        return found->second;
    const QKeySequence sequence(QString::fromStdString(name)); // the function keys
    if (sequence.isEmpty())
        throw std::invalid_argument("There is no key " + name + ".");
    return sequence[0].key();
}

Qt::KeyboardModifiers modifiersOf(const script::KeyStroke& key) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, key.shift);
    modifiers.setFlag(Qt::ControlModifier, key.control);
    modifiers.setFlag(Qt::AltModifier, key.alt);
    return modifiers;
}

/// What a keyboard sends along as text: none with Ctrl, a control character for some named keys.
QString textOf(const script::KeyStroke& key, Qt::Key code) {
    if (key.control)
        return {};
    if (key.name.empty())
        return QString::fromUcs4(&key.character, 1);
    switch (code) {
    case Qt::Key_Return:
        return QStringLiteral("\r");
    case Qt::Key_Escape:
        return QStringLiteral("\x1b");
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Space:
        return QStringLiteral(" ");
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

void press(QWidget& window, const script::KeyStroke& key) {
    Qt::Key code = key.name.empty() ? static_cast<Qt::Key>(text::upper(key.character)) : namedKey(key.name);
    if (code == Qt::Key_Tab && key.shift)
        code = Qt::Key_Backtab;
    const QPointer<QWindow> native(window.windowHandle());
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        if (native)
            qt_handleKeyEvent(native, type, code, modifiersOf(key), textOf(key, code), false, 1);
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
