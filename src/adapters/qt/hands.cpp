#include "adapters/qt/hands.h"

#include "adapters/qt/scroll_page.h"
#include "base/text/text.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QKeySequence>
#include <QPointer>
#include <QTest>
#include <QThread>
#include <QWidget>
#include <QWindow>

#include <map>
#include <stdexcept>

namespace opd::qt::hands {

namespace {

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

} // namespace

void press(QWidget& window, const script::KeyStroke& key) {
    const Qt::Key code = key.name.empty() ? static_cast<Qt::Key>(text::upper(key.character)) : namedKey(key.name);
    QWindow* const native = window.windowHandle();
    if (native == nullptr)
        return;
    if (code == Qt::Key_Tab && key.shift)
        QTest::sendKeyEvent(QTest::Click, native, Qt::Key_Backtab, QString(), modifiersOf(key));
    else
        QTest::sendKeyEvent(QTest::Click, native, code, textOf(key, code), modifiersOf(key));
}

void click(QWidget& widget, const QPoint& point) {
    QWidget* const window = widget.window();
    scrollIntoSight(widget);
    if (window->windowHandle() != nullptr)
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, widget.mapTo(window, point));
}

void doubleClick(QWidget& widget, const QPoint& point) {
    QWidget* const window = widget.window();
    scrollIntoSight(widget);
    if (window->windowHandle() != nullptr)
        QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, widget.mapTo(window, point));
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
