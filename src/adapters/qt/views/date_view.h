#pragma once

#include "adapters/qt/views/calendar_line_view.h"

namespace opd::qt {

/// A date that always has a value, typed as eight digits, pasted whole or picked from a calendar; the arrows Up and
/// Down go from day to day.
class DateView final : public CalendarLineView {
  public:
    DateView(ui::DatePicker& picker, QWidget* widget, QLabel* label);

    void show(ui::Aspect aspect) override;
    void insert(const QString& text) override;
    bool takes(char32_t character) override;
    QString selection() const override;
    QString shownText() const override;

  private:
    void follow();
    void showText();

    ui::DatePicker& m_picker;
};

} // namespace opd::qt
