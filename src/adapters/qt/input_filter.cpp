#include "adapters/qt/input_filter.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/window_shell.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateTimeEdit>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>

namespace opd::qt {

namespace {

WindowShell* openShell(QWidget* window) {
    auto* shell = qobject_cast<WindowShell*>(window);
    return shell != nullptr && shell->isOpen() ? shell : nullptr;
}

/// The shell whose native window this is.
WindowShell* shellOf(const QObject* nativeWindow) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == nativeWindow)
            return openShell(widget);
    return nullptr;
}

bool isAltAlone(const QKeyEvent& key) {
    return (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::AltModifier;
}

/// The character of a key held down with Alt; 0 for keys that are no character.
char32_t altCharacter(const QKeyEvent& key) {
    const QList<uint> text = key.text().toUcs4();
    if (text.size() == 1 && text[0] > ui::key::space)
        return text[0];
    return key.key() > Qt::Key_Space && key.key() < Qt::Key_Escape ? static_cast<char32_t>(key.key()) : 0;
}

/// A change by the wheel is a change by accident: the clerk scrolls past a field.
bool isScrolledByWheel(const QWidget& widget) {
    return qobject_cast<const QComboBox*>(&widget) != nullptr || qobject_cast<const QTabBar*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr;
}

/// The character codes that a window looks at, of the keys that are not typed text.
char32_t controlCharacter(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ui::key::enter;
    case Qt::Key_Escape:
        return ui::key::escape;
    case Qt::Key_Backspace:
        return ui::key::backspace;
    default:
        return 0;
    }
}

/// What the window's model lets through of typed characters.
std::u32string typedPart(WindowShell& shell, const QString& text) {
    std::u32string taken;
    for (const uint character : text.toUcs4())
        if (const char32_t code = shell.isOpen() ? shell.model().pressKey(character) : 0; code != 0)
            taken += code;
    return taken;
}

QString toText(const std::u32string& characters) {
    return QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size()));
}

} // namespace

bool InputFilter::eventFilter(QObject* object, QEvent* event) {
    if (event == m_resent)
        return false;
    if (object->isWindowType()) {
        const bool isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        if (!isPress || QApplication::activePopupWidget() != nullptr)
            return false;
        WindowShell* shell = shellOf(object);
        return shell != nullptr && mousePressed(*shell, static_cast<QMouseEvent&>(*event));
    }
    if (!object->isWidgetType())
        return false;
    auto& widget = static_cast<QWidget&>(*object);
    WindowShell* shell = openShell(widget.window());
    return shell != nullptr && widgetEvent(*shell, widget, *event);
}

bool InputFilter::widgetEvent(WindowShell& shell, QWidget& widget, QEvent& event) {
    switch (event.type()) {
    case QEvent::ShortcutOverride:
        // Taken here, Alt with a character becomes an ordinary key press instead of one of the toolkit's own shortcuts.
        if (!isAltAlone(static_cast<QKeyEvent&>(event)) || altCharacter(static_cast<QKeyEvent&>(event)) == 0)
            return false;
        event.accept();
        return true;
    case QEvent::KeyPress: {
        // A key that a widget does not want wanders up to its parents; it was looked at when it was pressed.
        const QWidget* focus = shell.focusWidget();
        if (&widget != focus && (focus != nullptr || &widget != &shell))
            return false;
        return keyPressed(shell, widget, static_cast<QKeyEvent&>(event));
    }
    case QEvent::InputMethod:
        return composed(shell, widget, static_cast<QInputMethodEvent&>(event));
    case QEvent::MouseButtonRelease: {
        ControlView* view = shell.viewAt(&widget);
        if (static_cast<QMouseEvent&>(event).button() == Qt::MiddleButton) {
            paste(shell, QApplication::clipboard()->text(QClipboard::Selection));
            return true;
        }
        if (view != nullptr)
            view->clickedInto();
        return false;
    }
    case QEvent::ContextMenu:
        return menuWanted(shell, widget, static_cast<QContextMenuEvent&>(event));
    case QEvent::Drop:
        return dropped(shell, widget, static_cast<QDropEvent&>(event));
    case QEvent::Wheel:
        event.ignore(); // what is around the field may scroll
        return isScrolledByWheel(widget);
    default:
        return false;
    }
}

bool InputFilter::keyPressed(WindowShell& shell, QWidget& receiver, QKeyEvent& key) {
    if (isAltAlone(key)) {
        const char32_t character = altCharacter(key);
        if (character != 0)
            shell.model().pressAccessKey(character);
        return character != 0;
    }
    if (key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier) {
        shell.model().pressHelp(m_desktop);
        return true;
    }
    if (key.key() == Qt::Key_F4 && key.modifiers() == Qt::NoModifier && shell.model().pressLookup())
        return true;
    if (navigated(shell, key) || arrowPressed(shell, key) || cellKeyPressed(shell, key))
        return true;
    if (key.matches(QKeySequence::Paste)) {
        paste(shell, QApplication::clipboard()->text());
        return true;
    }
    return lineBroken(shell, key) || characterTyped(shell, receiver, key);
}

bool InputFilter::navigated(WindowShell& shell, const QKeyEvent& key) {
    const bool control = key.modifiers().testFlag(Qt::ControlModifier);
    switch (key.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const bool backward = key.key() == Qt::Key_Backtab || key.modifiers().testFlag(Qt::ShiftModifier);
        if (control)
            shell.model().turnPage(backward);
        else
            shell.model().pressTab(backward);
        return true;
    }
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (control)
            shell.model().turnPage(key.key() == Qt::Key_PageUp);
        return control;
    default:
        return false;
    }
}

bool InputFilter::arrowPressed(WindowShell& shell, const QKeyEvent& key) {
    const bool backward = key.key() == Qt::Key_Up || key.key() == Qt::Key_Left;
    if (!backward && key.key() != Qt::Key_Down && key.key() != Qt::Key_Right)
        return false;
    if (key.key() == Qt::Key_Down && shell.model().pressArrowDown())
        return true;
    if (shell.model().pressArrow(backward))
        return true;
    // On other buttons the toolkit would move the focus by itself.
    const ControlView* view = shell.focusView();
    return view == nullptr || qobject_cast<QAbstractButton*>(view->widget()) != nullptr;
}

bool InputFilter::cellKeyPressed(WindowShell& shell, const QKeyEvent& key) {
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    if (key.key() == Qt::Key_F2)
        return shell.model().pressOnCell(ui::key::enter);
    return key.key() == Qt::Key_Delete && shell.model().pressOnCell(ui::key::backspace);
}

bool InputFilter::characterTyped(WindowShell& shell, QWidget& receiver, QKeyEvent& key) {
    const Qt::KeyboardModifiers held = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isAltGr = held == (Qt::ControlModifier | Qt::AltModifier);
    if (const char32_t code = controlCharacter(key); code != 0) {
        const char32_t taken = shell.model().pressKey(code);
        return code != ui::key::backspace || taken != code;
    }
    const QString text = key.text();
    if (text.isEmpty() || !text.at(0).isPrint() || (held != Qt::NoModifier && !isAltGr))
        return false;
    ControlView* view = shell.focusView();
    const std::u32string taken = typedPart(shell, text);
    if (taken.empty() || !shell.isOpen() || view == nullptr || !view->hasRoom())
        return true;
    bool isTaken = false;
    view->letThrough([&] { isTaken = view->takes(taken.front()); });
    if (isTaken || !shell.isOpen())
        return true;
    QKeyEvent passed(QEvent::KeyPress, key.key(), key.modifiers(), toText(taken), key.isAutoRepeat());
    resend(*view, receiver, passed);
    return true;
}

// Elsewhere Enter means the same with every other key held down.
bool InputFilter::lineBroken(WindowShell& shell, const QKeyEvent& key) {
    if (controlCharacter(key) != ui::key::enter ||
        !key.modifiers().testAnyFlags(Qt::ShiftModifier | Qt::ControlModifier))
        return false;
    ControlView* view = shell.focusView();
    if (view == nullptr || !shell.model().breaksLines())
        return false;
    view->letThrough([&] { view->insert(QStringLiteral("\n")); });
    return true;
}

// Characters made of several keys (a tilde and an n) come as a finished text, not as a key.
bool InputFilter::composed(WindowShell& shell, QWidget& receiver, QInputMethodEvent& event) {
    ControlView* view = shell.focusView();
    if (event.commitString().isEmpty() || view == nullptr)
        return false;
    QInputMethodEvent another(event.preeditString(), event.attributes());
    if (!view->hasRoom())
        another.setCommitString({}, event.replacementStart(), event.replacementLength());
    else
        another.setCommitString(toQt(shell.model().passed(view->control(), fromQt(event.commitString()))),
                                event.replacementStart(), event.replacementLength());
    if (shell.isOpen())
        resend(*view, receiver, another);
    return true;
}

bool InputFilter::mousePressed(WindowShell& shell, const QMouseEvent& press) {
    QWidget* target = shell.childAt(press.position().toPoint());
    if (auto* bar = qobject_cast<QTabBar*>(target)) {
        ControlView* tabs = shell.viewAt(bar);
        const int tab = bar->tabAt(bar->mapFrom(&shell, press.position().toPoint()));
        if (tabs != nullptr && tab >= 0 && bar->isTabEnabled(tab) && press.button() == Qt::LeftButton)
            shell.model().pickPage(static_cast<ui::Tabs&>(tabs->control()), tab);
        return true;
    }
    const ControlView* view = shell.viewAt(target);
    if (view == nullptr || !view->control().canTakeFocus())
        return false;
    const bool moved = shell.model().requestFocus(view->control());
    return !moved || !shell.isOpen();
}

// The toolkit's own menu of a text field, but what it pastes goes the way of every pasted text.
bool InputFilter::menuWanted(WindowShell& shell, QWidget& widget, const QContextMenuEvent& event) {
    QMenu* menu = nullptr;
    if (auto* edit = qobject_cast<QLineEdit*>(&widget))
        menu = edit->createStandardContextMenu();
    else if (auto* memo = qobject_cast<QPlainTextEdit*>(widget.parentWidget()))
        menu = memo->createStandardContextMenu();
    if (menu == nullptr)
        return qobject_cast<QAbstractSpinBox*>(&widget) != nullptr;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (!action->text().startsWith(QStringLiteral("&Paste")))
            continue;
        QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        QObject::connect(action, &QAction::triggered, &widget,
                         [this, &shell] { paste(shell, QApplication::clipboard()->text()); });
    }
    menu->popup(event.globalPos());
    return true;
}

// Dropped where the mouse points, as far as the model lets it through.
bool InputFilter::dropped(WindowShell& shell, QWidget& widget, QDropEvent& event) {
    ControlView* view = shell.viewAt(&widget);
    if (view == nullptr || !event.mimeData()->hasText() || !shell.model().requestFocus(view->control()))
        return true;
    view->placeCursor(view->widget()->mapFrom(&widget, event.position().toPoint()));
    paste(shell, event.mimeData()->text());
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return true;
}

void InputFilter::paste(WindowShell& shell, const QString& text) {
    ControlView* view = shell.focusView();
    if (view == nullptr)
        return;
    const std::string passed = shell.model().passed(view->control(), fromQt(text));
    if (!passed.empty() && shell.isOpen())
        view->letThrough([&] { view->insert(toQt(passed)); });
}

void InputFilter::resend(ControlView& view, QWidget& receiver, QEvent& event) {
    const QScopedValueRollback<const QEvent*> passed(m_resent, &event);
    view.letThrough([&] { QCoreApplication::sendEvent(&receiver, &event); });
}

} // namespace opd::qt
