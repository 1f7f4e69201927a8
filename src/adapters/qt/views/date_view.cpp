#include "adapters/qt/views/date_view.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/views/calendar_popup.h"
#include "adapters/qt/views/masked_line.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace opd::qt {

namespace {

const std::string mask{ui::MaskedBox::dateMask};

/// Tells of the arrows that an editing line has no use for.
class ArrowWatch final : public QObject {
  public:
    ArrowWatch(QLineEdit& line, std::function<void(ui::Key arrow)> step) : QObject(&line), m_step(std::move(step)) {
        line.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* line, QEvent* event) override {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(line, event);
        const auto& key = static_cast<QKeyEvent&>(*event);
        const bool isArrow = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
        if (!isArrow || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            return QObject::eventFilter(line, event);
        m_step(key.key() == Qt::Key_Up ? ui::Key::Up : ui::Key::Down);
        return true;
    }

  private:
    std::function<void(ui::Key)> m_step;
};

} // namespace

DateView::DateView(ui::DatePicker& picker, QWidget* widget, QLabel* label)
    : ControlView(picker, widget, label), m_picker(picker), m_edit(static_cast<QLineEdit*>(widget)) {
    masked::setMask(*m_edit, mask);
    const auto opensAt = [this] {
        const DateTime& day = m_picker.value();
        return QDate(day.year, day.month, day.day);
    };
    const auto picked = [this](const QDate& day) {
        const DateTime& now = m_picker.value();
        window().edited(m_picker, DateTime{day.year(), day.month(), day.day(), now.hour, now.minute, now.second});
        selectContent();
    };
    m_calendar = new CalendarButton(*m_edit, opensAt, picked);
    new ArrowWatch(*m_edit, [this](ui::Key arrow) { // the line owns both
        window().step({.key = arrow});
        selectContent();
    });
    QObject::connect(m_edit, &QLineEdit::textChanged, m_edit, [this] {
        if (!isWriting())
            follow();
    });
}

void DateView::follow() {
    const std::string text = fromQt(shownText());
    if (hasPassed() || m_edit->hasFocus())
        window().edited(m_picker, text);
    else
        window().written(m_picker, text);
}

void DateView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Text)
        showText();
}

void DateView::showText() {
    const QString text = toQt(m_picker.shownText());
    if (text != shownText())
        write([&] { masked::show(*m_edit, text); });
}

void DateView::setSpoken(const QString& name, const QString& tip) {
    ControlView::setSpoken(name, tip);
    m_calendar->nameAfter(name);
}

void DateView::selectContent() {
    m_edit->setCursorPosition(0);
    m_edit->selectAll();
}

void DateView::insert(const QString& text) {
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
