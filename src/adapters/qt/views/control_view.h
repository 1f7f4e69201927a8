#pragma once

#include "ui/window.h"

#include <QLabel>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace opd::qt {

/// Shows one control in its widget, forwards what the clerk does there, and tells what the clerk sees. One class for
/// each kind of control; none knows a control by name.
class ControlView {
  public:
    /// `widget` may be null for a control that shows nothing; `label` is the one beside a field, or null.
    ControlView(ui::Control& control, QWidget* widget, QLabel* label);
    virtual ~ControlView() = default;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    ui::Control& control() const { return m_control; }
    QWidget* widget() const { return m_widget; }

    /// Brings one aspect of the model to the widget.
    virtual void show(ui::Aspect aspect);

    /// What a screen reader calls the control, and what the mouse is told there while nothing is refused.
    virtual void setSpoken(const QString& name, const QString& tip);

    /// Selects what a field holds.
    virtual void selectContent() {}

    /// Puts text that passed every filter where the cursor is, as far as there is room.
    virtual void insert(const QString&) {}

    /// Puts the cursor where a text is dropped, in the coordinates of the widget that is dropped on.
    virtual void placeCursor(const QPoint&) {}

    /// What is selected in a field.
    virtual QString selection() const { return {}; }

    /// While `input` runs, what changes in the widget has passed every filter already.
    void letThrough(const std::function<void()>& input);

    /// Takes a character that passed every filter itself, in place of the widget. False when the widget is to take it.
    virtual bool takes(char32_t) { return false; }

    /// The mouse was clicked in it.
    virtual void clickedInto() {}

    /// What of a text there is room for in the place of what is selected. Where that is not all, the window says so.
    virtual QString fitted(const QString& text) const { return text; }

    /// What the widget shows: the content of a field, the caption of anything else with "&" for its access key.
    virtual QString shownText() const { return {}; }
    virtual bool isChecked() const { return false; }

    /// Where a clerk clicks it, in the coordinates of the widget.
    virtual QPoint clickPoint() const { return m_widget->rect().center(); }

    /// The window is gone: nothing is forwarded or read any more.
    virtual void release();

  protected:
    /// While `writing` runs, the widget follows the model and nothing of it is forwarded.
    void write(const std::function<void()>& writing);
    bool isWriting() const { return m_writing; }
    bool hasPassed() const { return m_passed; }

    ui::Window& window() const { return m_control.window(); }
    bool isReleased() const { return m_released; }

    /// Tells the window what the field holds by now.
    template <class Box> void forward(Box& box, const std::string& content) const {
        if (m_passed)
            window().edited(box, content);
        else
            window().written(box, content);
    }

  private:
    template <class Deed> void forEachPart(const Deed& deed) const;
    void showMarks();

    ui::Control& m_control;
    QWidget* m_widget;
    QLabel* m_label;
    QString m_tip;
    QString m_description; ///< what a screen reader is told besides the name while nothing is refused
    bool m_released = false;
    bool m_writing = false;
    bool m_passed = false;
};

/// The view of a control by its kind. The widget must be of the class that `fits` accepts.
std::unique_ptr<ControlView> makeView(ui::Control& control, QWidget* widget, QLabel* label);

/// True when a widget is of a class that can show this control.
bool fits(const ui::Control& control, const QWidget& widget);

} // namespace opd::qt
