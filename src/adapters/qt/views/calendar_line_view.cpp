#include "adapters/qt/views/calendar_line_view.h"

#include "adapters/qt/views/calendar_popup.h"

#include <QLineEdit>

#include <utility>

namespace opd::qt {

CalendarLineView::CalendarLineView(ui::Control& control, QWidget* widget, QLabel* label)
    : ControlView(control, widget, label), m_line(static_cast<QLineEdit&>(*widget)) {}

void CalendarLineView::addCalendar(std::function<DateTime()> date, std::function<void(const DateTime&)> picked) {
    const auto opensAt = [date = std::move(date)] {
        const DateTime day = date();
        return QDate(day.year, day.month, day.day);
    };
    const auto pick = [this, picked = std::move(picked)](const QDate& day) {
        picked({day.year(), day.month(), day.day()});
        selectContent();
    };
    m_calendar = new CalendarButton(m_line, opensAt, pick);
}

void CalendarLineView::setSpoken(const QString& name, const QString& tip) {
    ControlView::setSpoken(name, tip);
    if (m_calendar != nullptr)
        m_calendar->nameAfter(name);
}

void CalendarLineView::selectContent() {
    m_line.setCursorPosition(0);
    m_line.selectAll();
}

void CalendarLineView::placeCursor(const QPoint& point) {
    m_line.setCursorPosition(m_line.cursorPositionAt(point));
}

} // namespace opd::qt
