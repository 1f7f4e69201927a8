#pragma once

#include "adapters/qt/views/control_view.h"

#include <functional>

class QLineEdit;

namespace opd::qt {

class CalendarButton;

/// What the views of a masked date in one line share: where its cursor goes, and the calendar that opens from it.
class CalendarLineView : public ControlView {
  public:
    void setSpoken(const QString& name, const QString& tip) override;
    void selectContent() override;
    void placeCursor(const QPoint& point) override;

  protected:
    CalendarLineView(ui::Control& control, QWidget* widget, QLabel* label);

    QLineEdit& line() const { return m_line; }

    /// Lets the line open a calendar at the date that `date` tells; `picked` is told the one that the clerk picks.
    void addCalendar(std::function<DateTime()> date, std::function<void(const DateTime&)> picked);

  private:
    QLineEdit& m_line;
    CalendarButton* m_calendar = nullptr; ///< the line owns it
};

} // namespace opd::qt
