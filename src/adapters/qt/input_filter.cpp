#include "adapters/qt/input_filter.h"

#include "adapters/qt/basics/key_codes.h"
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

/// Alt with a character, which the toolkit would take for a shortcut of its own.
bool isAccessKey(const QKeyEvent& key) {
    const std::optional<ui::KeyStroke> stroke = strokeOf(key);
    return stroke && stroke->alt && !stroke->control && stroke->isCharacter();
}

/// A change by the wheel is a change by accident: the clerk scrolls past a field.
bool isScrolledByWheel(const QWidget& widget) {
    return qobject_cast<const QComboBox*>(&widget) != nullptr || qobject_cast<const QTabBar*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr;
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
        if (!isAccessKey(static_cast<QKeyEvent&>(event)))
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
    if (key.matches(QKeySequence::Paste)) {
        paste(shell, QApplication::clipboard()->text());
        return true;
    }
    const std::optional<ui::KeyStroke> stroke = strokeOf(key);
    if (!stroke)
        return false;
    if (stroke->isCharacter() && !stroke->control && !stroke->alt)
        return characterTyped(shell, receiver, key);
    const std::optional<ui::KeyStroke> left = shell.model().press(*stroke, m_desktop);
    if (left && left->key == ui::Key::Enter && !left->alt)
        return lineBroken(shell);
    return !left;
}

bool InputFilter::characterTyped(WindowShell& shell, QWidget& receiver, QKeyEvent& key) {
    ControlView* view = shell.focusView();
    std::u32string taken;
    for (const uint character : key.text().toUcs4())
        if (shell.isOpen())
            if (const auto left = shell.model().press({.character = character}, m_desktop))
                taken += left->character;
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

bool InputFilter::lineBroken(WindowShell& shell) {
    ControlView* view = shell.focusView();
    if (view != nullptr)
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
