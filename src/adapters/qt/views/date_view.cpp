#include "adapters/qt/views/date_view.h"

#include "adapters/qt/basics/qt_text.h"
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
    : CalendarLineView(picker, widget, label), m_picker(picker) {
    masked::setMask(line(), mask);
    addCalendar([this] { return m_picker.value(); },
                [this](const DateTime& day) {
                    const DateTime& now = m_picker.value();
                    window().edited(m_picker, DateTime{day.year, day.month, day.day, now.hour, now.minute, now.second});
                });
    new ArrowWatch(line(), [this](ui::Key arrow) { // the line owns it
        window().step({.key = arrow});
        selectContent();
    });
    QObject::connect(&line(), &QLineEdit::textChanged, &line(), [this] {
        if (!isWriting())
            follow();
    });
}

void DateView::follow() {
    const std::string text = fromQt(shownText());
    if (hasPassed() || line().hasFocus())
        window().edited(m_picker, text);
    else
        window().written(m_picker, text);
}

void DateView::show(ui::Aspect aspect) {
    CalendarLineView::show(aspect);
    if (aspect == ui::Aspect::Text)
        showText();
}

void DateView::showText() {
    const QString text = toQt(m_picker.shownText());
    if (text != shownText())
        write([&] { masked::show(line(), text); });
}

void DateView::insert(const QString& text) {
    masked::insert(line(), mask, text);
}

bool DateView::takes(char32_t character) {
    return masked::takes(line(), mask, character);
}

QString DateView::selection() const {
    return masked::blanked(line().selectedText());
}

QString DateView::shownText() const {
    return masked::text(line());
}

} // namespace opd::qt
