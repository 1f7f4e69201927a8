#include "adapters/qt/views/date_view.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/views/calendar_popup.h"
#include "adapters/qt/views/masked_line.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace opd::qt {

namespace {

const std::string mask{ui::MaskedBox::dateMask};
constexpr const char* noDate = "This is no date. Eight digits: month, day and year.";
constexpr int firstYear = 1753; // of the calendar that databases reckon with

/// A date in any spelling that a clerk may leave it in.
std::optional<DateTime> dateIn(const std::string& text) {
    std::optional<DateTime> date = parseDate(text);
    if (!date)
        date = parseDate(text::replaced(text, " ", ""));
    return date && date->year >= firstYear ? date : std::nullopt;
}

QDate dayOf(const DateTime& value) {
    return {value.year, value.month, value.day};
}

/// Tells of the arrows that an editing line has no use for.
class ArrowWatch final : public QObject {
  public:
    ArrowWatch(QLineEdit& line, std::function<void(int days)> step) : QObject(&line), m_step(std::move(step)) {
        line.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* line, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(line, event);
        const auto& key = static_cast<QKeyEvent&>(*event);
        const int days = key.key() == Qt::Key_Up ? 1 : key.key() == Qt::Key_Down ? -1 : 0;
        if (days == 0 || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            return QObject::eventFilter(line, event);
        m_step(days);
        return true;
    }

  private:
    std::function<void(int)> m_step;
};

} // namespace

DateView::DateView(ui::DatePicker& picker, QWidget* widget, QLabel* label)
    : ControlView(picker, widget, label), m_picker(picker), m_edit(static_cast<QLineEdit*>(widget)) {
    masked::setMask(*m_edit, mask);
    const auto opensAt = [this] { return dayOf(m_picker.value()); };
    const auto picked = [this](const QDate& day) {
        take({day.year(), day.month(), day.day(), 0, 0, 0});
        selectContent();
    };
    m_calendar = new CalendarButton(*m_edit, opensAt, picked);
    new ArrowWatch(*m_edit, [this](int days) { step(days); }); // the line owns both
    QObject::connect(m_edit, &QLineEdit::textChanged, m_edit, [this] {
        if (!isWriting())
            follow();
    });
    askWhenLeft();
}

// The model holds dates alone: whether what is typed is one, the line knows.
void DateView::askWhenLeft() {
    m_rule = m_picker.onValidate;
    m_picker.onValidate = [this](bool& refuse) {
        refuse = !finish();
        if (!refuse && m_rule)
            m_rule(refuse);
    };
    m_afterwards = m_picker.onLostFocus;
    m_picker.onLostFocus = [this] {
        showValue();
        if (m_afterwards)
            m_afterwards();
    };
}

void DateView::release() {
    ControlView::release();
    m_picker.onValidate = m_rule;
    m_picker.onLostFocus = m_afterwards;
}

// Digit by digit the line is a date in between, too; one with a place left is not.
void DateView::follow() {
    const std::string text = fromQt(shownText());
    const bool isWhole = text.find(' ') == std::string::npos;
    const std::optional<DateTime> date = isWhole ? dateIn(text) : std::nullopt;
    if (date)
        take(*date);
    else if (!hasPassed() && !window().requestFocus(m_picker)) // written by a program, where it cannot be asked about
        showValue();
}

/// Takes over what is typed, as far as that is a date.
bool DateView::finish() {
    const std::optional<DateTime> date = dateIn(fromQt(shownText()));
    if (date) {
        take(*date);
        showValue();
    } else {
        m_picker.setRefusal(noDate);
        selectContent();
    }
    return date.has_value();
}

/// The hour stays as it is.
void DateView::take(const DateTime& date) {
    DateTime value = m_picker.value();
    value.year = date.year;
    value.month = date.month;
    value.day = date.day;
    if (m_picker.refusal() == noDate)
        m_picker.setRefusal({});
    if (hasPassed() || m_edit->hasFocus())
        window().edited(m_picker, value);
    else
        window().written(m_picker, value);
}

void DateView::step(int days) {
    const QDate day = dayOf(m_picker.value()).addDays(days);
    take({day.year(), day.month(), day.day(), 0, 0, 0});
    selectContent();
}

void DateView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Text)
        showValue();
}

void DateView::setSpoken(const QString& name, const QString& tip) {
    ControlView::setSpoken(name, tip);
    m_calendar->nameAfter(name);
}

void DateView::showValue() {
    if (m_picker.refusal() == noDate)
        m_picker.setRefusal({});
    const QString text = toQt(m_picker.text());
    if (text != shownText())
        write([&] { masked::show(*m_edit, text); });
}

void DateView::selectContent() {
    m_edit->setCursorPosition(0);
    m_edit->selectAll();
}

void DateView::insert(const QString& text) {
    if (const std::optional<DateTime> date = dateIn(fromQt(text)))
        masked::insert(*m_edit, mask, toQt(dateText(*date)));
    else
        masked::insert(*m_edit, mask, text);
}

void DateView::placeCursor(const QPoint& point) {
    m_edit->setCursorPosition(m_edit->cursorPositionAt(point));
}

bool DateView::takes(char32_t character) {
    return masked::takes(*m_edit, mask, character);
}

QString DateView::selection() const {
    return masked::blanked(m_edit->selectedText());
}

QString DateView::shownText() const {
    return masked::text(*m_edit);
}

} // namespace opd::qt
