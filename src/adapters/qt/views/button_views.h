#pragma once

#include "adapters/qt/views/control_view.h"

#include <QAbstractButton>

namespace opd::qt {

/// A button that is pressed.
class ButtonView : public ControlView {
  public:
    ButtonView(ui::Control& control, QWidget* widget);

    void show(ui::Aspect aspect) override;
    QString shownText() const override;

  protected:
    /// A click, by whatever means.
    void press();
    QAbstractButton* button() const { return static_cast<QAbstractButton*>(widget()); }
};

/// An option button or a check box: what it shows is decided by the model, never by the widget.
class ToggleView final : public ButtonView {
  public:
    ToggleView(ui::Control& control, QWidget* widget);

    void show(ui::Aspect aspect) override;
    bool isChecked() const override { return button()->isChecked(); }
    QPoint clickPoint() const override;

  private:
    void showState();
};

/// A text of its own.
class LabelView final : public ControlView {
  public:
    LabelView(ui::Control& control, QWidget* widget) : ControlView(control, widget, nullptr) {}

    void show(ui::Aspect aspect) override;
    QString shownText() const override;
};

} // namespace opd::qt
