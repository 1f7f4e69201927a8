#pragma once

#include "adapters/qt/views/control_view.h"
#include "base/clock/date_time.h"

#include <optional>

class QLineEdit;

namespace opd::qt {

class CalendarButton;

/// A date that always has a value, typed as eight digits, pasted whole or picked from a calendar; the arrows Up and
/// Down go from day to day. What is typed counts when it is a date. A line that holds none is not left, but for a
/// control that asks nothing, and shows the value again when the focus has gone all the same.
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
    void release() override;

  private:
    void askWhenLeft();
    void follow();
    bool finish();
    void showValue();
    void take(const DateTime& date);
    void step(int days);

    ui::DatePicker& m_picker;
    QLineEdit* m_edit;
    CalendarButton* m_calendar;
    std::function<void(bool&)> m_rule; ///< of the form, asked once the line holds a date
    std::function<void()> m_afterwards;
};

} // namespace opd::qt
