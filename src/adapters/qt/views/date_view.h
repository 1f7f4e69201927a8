#pragma once

#include "adapters/qt/views/control_view.h"

class QLineEdit;

namespace opd::qt {

class CalendarButton;

/// A date that always has a value, typed as eight digits, pasted whole or picked from a calendar; the arrows Up and
/// Down go from day to day.
class DateView final : public ControlView {
  public:
    DateView(ui::DatePicker& picker, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    void setSpoken(const QString& name, const QString& tip) override;
    void selectContent() override;
    void insert(const QString& text) override;
    void placeCursor(const QPoint& point) override;
    bool takes(char32_t character) override;
    QString selection() const override;
    QString shownText() const override;

  private:
    void follow();
    void showText();

    ui::DatePicker& m_picker;
    QLineEdit* m_edit;
    CalendarButton* m_calendar;
};

} // namespace opd::qt
