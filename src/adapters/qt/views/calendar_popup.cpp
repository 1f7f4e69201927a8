#include "adapters/qt/views/calendar_popup.h"

#include "adapters/qt/look/colours.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace opd::qt {

namespace {

constexpr int rowsOfMonth = 7; // the names of the days, and six weeks
constexpr int spaceInRow = 8;
constexpr int firstYear = 1800;
constexpr int lastYear = 9999;

/// A month's sheet.
QIcon sheetIcon() {
    constexpr int size = 32;
    QPixmap sheet(size, size);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    painter.setPen(QPen(colours::text, 2));
    painter.drawRect(3, 6, 26, 22);
    painter.fillRect(3, 6, 26, 6, colours::text);
    for (int place = 0; place < 6; ++place)
        painter.fillRect(8 + 7 * (place % 3), 16 + 6 * (place / 3), 3, 3, colours::text);
    return QIcon(sheet);
}

bool opens(const QKeyEvent& key) {
    const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeypadModifier;
    return (key.key() == Qt::Key_F4 && held == Qt::NoModifier) ||
           (key.key() == Qt::Key_Down && held == Qt::AltModifier);
}

} // namespace

CalendarPopup::CalendarPopup(QLineEdit& field, std::function<void(const QDate&)> picked)
    : QFrame(&field, Qt::Popup), m_field(field), m_picked(std::move(picked)), m_year(new QSpinBox(this)),
      m_month(new QComboBox(this)), m_days(new QCalendarWidget(this)) {
    setAttribute(Qt::WA_WindowPropagation); // the colours of the window that it belongs to
    setFrameShape(QFrame::StyledPanel);
    setAccessibleName(tr("Calendar"));
    m_year->setRange(firstYear, lastYear);
    m_year->setAccessibleName(tr("Year"));
    for (int month = 1; month <= 12; ++month)
        m_month->addItem(QLocale::c().monthName(month));
    m_month->setAccessibleName(tr("Month"));
    m_days->setLocale(QLocale::c());
    m_days->setNavigationBarVisible(false);
    m_days->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_days->setDateEditEnabled(false);
    m_days->setAccessibleName(tr("Day"));

    auto* const page = new QVBoxLayout(this);
    auto* const line = new QHBoxLayout();
    line->addWidget(m_year);
    line->addWidget(m_month, 1);
    page->addLayout(line);
    page->addWidget(m_days);

    connect(m_year, &QSpinBox::valueChanged, this, &CalendarPopup::turnTo);
    connect(m_month, &QComboBox::currentIndexChanged, this, &CalendarPopup::turnTo);
    connect(m_days, &QCalendarWidget::currentPageChanged, this, &CalendarPopup::showTurned);
    connect(m_days, &QCalendarWidget::clicked, this, &CalendarPopup::pick);
    connect(m_days, &QCalendarWidget::activated, this, &CalendarPopup::pick);
}

void CalendarPopup::openAt(const QDate& date) {
    m_days->setSelectedDate(date);
    showTurned(m_days->yearShown(), m_days->monthShown());
    place();
    show();
    m_year->setFocus(Qt::PopupFocusReason);
    m_year->selectAll();
}

void CalendarPopup::place() {
    m_days->setMinimumHeight(rowsOfMonth * (fontMetrics().height() + spaceInRow));
    adjustSize();
    const QRect room = m_field.screen()->availableGeometry();
    const QPoint below = m_field.mapToGlobal(QPoint(0, m_field.height()));
    move(qMin(below.x(), room.right() - width()), qMin(below.y(), room.bottom() - height()));
}

// The day stays, as far as the month has it.
void CalendarPopup::turnTo() {
    const int month = m_month->currentIndex() + 1;
    const int days = QDate(m_year->value(), month, 1).daysInMonth();
    const QSignalBlocker quiet(m_days);
    m_days->setSelectedDate(QDate(m_year->value(), month, qMin(m_days->selectedDate().day(), days)));
}

void CalendarPopup::showTurned(int year, int month) {
    const QSignalBlocker quietYear(m_year);
    const QSignalBlocker quietMonth(m_month);
    m_year->setValue(year);
    m_month->setCurrentIndex(month - 1);
}

void CalendarPopup::pick() {
    m_year->interpretText();
    const QDate day = m_days->selectedDate();
    hide();
    m_picked(day);
}

void CalendarPopup::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        pick();
    else if (event->key() == Qt::Key_Escape || opens(*event))
        hide();
    else
        QFrame::keyPressEvent(event);
}

CalendarButton::CalendarButton(QLineEdit& field, std::function<QDate()> date, std::function<void(const QDate&)> picked)
    : QObject(&field), m_field(field), m_action(field.addAction(sheetIcon(), QLineEdit::TrailingPosition)),
      m_date(std::move(date)), m_picked(std::move(picked)) {
    connect(m_action, &QAction::triggered, this, &CalendarButton::openUp);
    field.installEventFilter(this);
}

void CalendarButton::nameAfter(const QString& field) {
    m_action->setText(tr("Calendar of %1").arg(field));
    m_action->setToolTip(tr("Calendar (F4)"));
}

void CalendarButton::openUp() {
    if (m_field.isReadOnly() || !m_field.isEnabled())
        return;
    if (m_calendar == nullptr)
        m_calendar = new CalendarPopup(m_field, m_picked);
    m_calendar->openAt(m_date());
}

bool CalendarButton::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !opens(static_cast<QKeyEvent&>(*event)))
        return QObject::eventFilter(object, event);
    openUp();
    return true;
}

} // namespace opd::qt
