#pragma once

#include <QCalendarWidget>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QSpinBox>

#include <functional>

namespace opd::qt {

/// A calendar below a date field. The year is typed or turned, the month picked, and the day walked to, so that a birth
/// date decades back is near; Enter or a click picks, Esc gives up.
class CalendarPopup final : public QFrame {
    Q_OBJECT

  public:
    /// `picked` is told the date that the clerk picks. The field owns it.
    CalendarPopup(QLineEdit& field, std::function<void(const QDate&)> picked);

    void openAt(const QDate& date);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void turnTo();
    void showTurned(int year, int month);
    void pick();
    void place();

    QLineEdit& m_field;
    std::function<void(const QDate&)> m_picked;
    QSpinBox* m_year;
    QComboBox* m_month;
    QCalendarWidget* m_days;
};

/// Opens the calendar of a date field by F4, Alt+Down or the button that it puts into the field. The calendar itself is
/// made when it is opened first: hardly one in a form is.
class CalendarButton final : public QObject {
    Q_OBJECT

  public:
    /// `date` tells the date that the calendar is to open at, `picked` is told the one that the clerk picks. The field
    /// owns it.
    CalendarButton(QLineEdit& field, std::function<QDate()> date, std::function<void(const QDate&)> picked);

    /// Calls itself after the field: a form has several.
    void nameAfter(const QString& field);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void openUp();

    QLineEdit& m_field;
    QAction* m_action;
    std::function<QDate()> m_date;
    std::function<void(const QDate&)> m_picked;
    CalendarPopup* m_calendar = nullptr;
};

} // namespace opd::qt
