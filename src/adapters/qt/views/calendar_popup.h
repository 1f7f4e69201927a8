#pragma once

#include <QCalendarWidget>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QSpinBox>

#include <functional>

namespace opd::qt {

/// A calendar that opens below a date field by F4, Alt+Down or the button in it. The year is typed or turned, the month
/// picked, and the day walked to, so that a birth date decades back is near; Enter or a click picks, Esc gives up.
class CalendarPopup final : public QFrame {
    Q_OBJECT

  public:
    /// `date` tells the date that the calendar is to open at, `picked` is told the one that the clerk picks. The field
    /// owns it.
    CalendarPopup(QLineEdit& field, std::function<QDate()> date, std::function<void(const QDate&)> picked);

    /// Opens at the date that it is told.
    void openUp();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void turnTo();
    void showTurned(int year, int month);
    void pick();

    QLineEdit& m_field;
    std::function<QDate()> m_date;
    std::function<void(const QDate&)> m_picked;
    QSpinBox* m_year;
    QComboBox* m_month;
    QCalendarWidget* m_days;
};

} // namespace opd::qt
