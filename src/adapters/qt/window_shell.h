#pragma once

#include "adapters/qt/views/control_view.h"
#include "ui/window_places.h"

#include <QWidget>

#include <memory>
#include <unordered_map>
#include <vector>

namespace opd::qt {

/// One window on the screen: shows a model's controls in the widgets of its form until the model is unloaded, and then
/// disappears and deletes itself.
class WindowShell final : public QWidget, public ui::WindowView {
    Q_OBJECT

  public:
    /// The form of this name, which shows no model yet. Throws std::logic_error when there is none.
    explicit WindowShell(const std::string& form);

    /// `places` remember the window's size from one time to the next; null when nobody does. Throws std::logic_error
    /// when there is no form for the window.
    explicit WindowShell(ui::Window& window, ui::WindowPlaces* places = nullptr);
    ~WindowShell() override;

    /// Makes it the window of a model, once; see the constructor.
    void bindTo(ui::Window& window, ui::WindowPlaces* places);

    /// Shows it and tells the model. `modal` keeps the clerk from every other window meanwhile. It stands in the middle
    /// of the window it serves, or of the screen when there is none, as large as it was left or as its content wants,
    /// and never larger than the screen with its frame.
    void present(bool modal, WindowShell* served);

    /// False without a model, and from the moment when it is unloaded; it may be gone then.
    bool isOpen() const { return m_open; }
    ui::Window& model() const { return *m_window; }

    /// The view of a control; null when its form has no widget for it.
    ControlView* viewOf(const ui::Control& control) const;

    /// The view whose widget is this one or has it inside; null outside of all.
    ControlView* viewAt(const QWidget* widget) const;

    /// The view of the control that has the focus, or null.
    ControlView* focusView() const;

    /// What the clerk reads in the status line; empty where the form has none.
    QString statusText() const { return m_statusLine == nullptr ? QString() : m_statusLine->text(); }

    // ui::WindowView
    void changed(ui::Control& control, ui::Aspect aspect) override;
    void focusMoved(ui::Control* control) override;
    void closed() override;

  signals:
    void gone();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void floatOverCells();
    void nameAll();
    void showAll();
    void fitScreen(const WindowShell* served);
    void rememberPlace();
    void followPage();
    void showStatus();

    ui::Window* m_window = nullptr;
    ui::WindowPlaces* m_places = nullptr;
    std::vector<std::unique_ptr<ControlView>> m_views;
    std::unordered_map<const ui::Control*, ControlView*> m_byControl;
    std::unordered_map<const QWidget*, ControlView*> m_byWidget;
    QLabel* m_statusLine = nullptr; ///< reads what the model's status line does; not every form has one
    bool m_open = false;
};

} // namespace opd::qt
