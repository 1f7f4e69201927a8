#pragma once

#include "ui/desktop.h"

#include <QClipboard>
#include <QObject>

#include <string>

class QContextMenuEvent;
class QDropEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace opd::qt {

class ControlView;
class WindowShell;

/// Sees every key, click and pasted text of the module's windows before the toolkit does and asks the window's model
/// first. Message boxes, pop-up lists and windows that are not the module's are left alone.
class InputFilter final : public QObject {
    Q_OBJECT

  public:
    /// Shows the cards of keys on `desktop`.
    explicit InputFilter(ui::Desktop& desktop) : m_desktop(desktop) {}

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool widgetEvent(WindowShell& shell, QWidget& widget, QEvent& event);
    bool keyPressed(WindowShell& shell, QWidget& receiver, QKeyEvent& key);
    bool characterTyped(WindowShell& shell, QWidget& receiver, QKeyEvent& key);
    bool composed(WindowShell& shell, QWidget& receiver, QInputMethodEvent& event);
    bool mousePressed(WindowShell& shell, const QMouseEvent& press);
    bool lineBroken(WindowShell& shell);
    bool dropped(WindowShell& shell, QWidget& widget, QDropEvent& event);
    bool menuWanted(WindowShell& shell, QWidget& widget, const QContextMenuEvent& event);
    void paste(WindowShell& shell, const QString& text);
    void resend(ControlView& view, QWidget& receiver, QEvent& event);

    ui::Desktop& m_desktop;
    const QEvent* m_resent = nullptr; // the one event that has passed the filter already
};

} // namespace opd::qt
