#include "adapters/qt/views/field_views.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/look/restyle.h"
#include "adapters/qt/views/masked_line.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "ui/line_edit.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>

namespace opd::qt {

namespace {

/// What may be typed is limited by the model; the widget holds every text.
constexpr int anyLength = 1 << 24;

/// What of a text fits into a box beside so many places that are taken. The toolkit counts them as the model does.
template <class Box> QString fittingPart(const QString& text, const Box& box, qsizetype taken) {
    QString fits = qt::toQt(ui::fitting(qt::fromQt(text), box.maxLength(), static_cast<std::size_t>(taken)));
    if (fits.size() < text.size())
        box.window().foundNoRoom(box.maxLength());
    return fits;
}

template <class Edit> void setReadOnly(Edit& edit, bool readOnly) {
    if (edit.isReadOnly() == readOnly)
        return;
    edit.setReadOnly(readOnly);
    restyle(edit);
}

/// A text as the toolkit's own fields of several lines hold it.
QString inLines(QString text) {
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QDateTime toQt(const DateTime& value) {
    return {QDate(value.year, value.month, value.day), QTime(value.hour, value.minute, value.second), Qt::UTC};
}

DateTime fromQt(const QDateTime& value) {
    const QDate date = value.date();
    const QTime time = value.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

} // namespace

TextView::TextView(ui::TextBox& box, QWidget* widget, QLabel* label)
    : ControlView(box, widget, label), m_box(box), m_edit(static_cast<QLineEdit*>(widget)) {
    setReadOnly(*m_edit, box.readOnly);
    m_edit->setMaxLength(anyLength);
    QObject::connect(m_edit, &QLineEdit::textChanged, m_edit, [this](const QString& text) {
        if (!isWriting())
            forward(m_box, qt::fromQt(text));
    });
}

void TextView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    const QString text = qt::toQt(m_box.text());
    if (aspect != ui::Aspect::Text || m_edit->text() == text)
        return;
    write([&] { m_edit->setText(text); });
    if (!m_edit->hasFocus())
        m_edit->setCursorPosition(0);
}

void TextView::selectContent() {
    m_edit->selectAll();
}

void TextView::insert(const QString& text) {
    if (!m_edit->isReadOnly())
        m_edit->insert(fitted(text));
}

void TextView::placeCursor(const QPoint& point) {
    m_edit->setCursorPosition(m_edit->cursorPositionAt(point));
}

QString TextView::fitted(const QString& text) const {
    if (m_edit->isReadOnly())
        return text;
    return fittingPart(text, m_box, m_edit->text().size() - m_edit->selectedText().size());
}

QString TextView::selection() const {
    return m_edit->selectedText();
}

QString TextView::shownText() const {
    return m_edit->text();
}

MemoView::MemoView(ui::TextBox& box, QWidget* widget, QLabel* label)
    : ControlView(box, widget, label), m_box(box), m_edit(static_cast<QPlainTextEdit*>(widget)) {
    setReadOnly(*m_edit, box.readOnly);
    m_edit->setTabChangesFocus(true);
    QObject::connect(m_edit, &QPlainTextEdit::textChanged, m_edit, [this] { follow(); });
}

// The widget tells of changes of its layout, too; a text that reads alike is not written anew.
void MemoView::follow() {
    if (isWriting() || m_edit->toPlainText() == inLines(qt::toQt(m_box.text())))
        return;
    forward(m_box, qt::fromQt(shownText()));
}

void MemoView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    const QString text = inLines(qt::toQt(m_box.text()));
    if (aspect != ui::Aspect::Text || m_edit->toPlainText() == text)
        return;
    write([&] { m_edit->setPlainText(text); });
    if (m_edit->hasFocus())
        m_edit->moveCursor(QTextCursor::End);
}

void MemoView::selectContent() {
    m_edit->selectAll();
}

void MemoView::insert(const QString& text) {
    if (!m_edit->isReadOnly())
        m_edit->insertPlainText(fitted(inLines(text)));
}

void MemoView::placeCursor(const QPoint& point) {
    m_edit->setTextCursor(m_edit->cursorForPosition(point));
}

QString MemoView::fitted(const QString& text) const {
    return fittingPart(text, m_box, m_edit->toPlainText().size() - selection().size());
}

QString MemoView::selection() const {
    return m_edit->textCursor().selectedText().replace(QChar::ParagraphSeparator, '\n');
}

QString MemoView::shownText() const {
    return qt::toQt(ui::TextBox::withLineEnds(qt::fromQt(m_edit->toPlainText())));
}

MaskedView::MaskedView(ui::MaskedBox& box, QWidget* widget, QLabel* label)
    : CalendarLineView(box, widget, label), m_box(box) {
    line().setMaxLength(anyLength);
    if (box.offersCalendar)
        offerCalendar();
    QObject::connect(&line(), &QLineEdit::textChanged, &line(), [this] {
        if (!isWriting())
            forward(m_box, qt::fromQt(shownText()));
    });
}

void MaskedView::show(ui::Aspect aspect) {
    CalendarLineView::show(aspect);
    if (aspect == ui::Aspect::Text)
        write([this] { showText(); });
}

void MaskedView::showText() {
    const QString before = line().inputMask();
    masked::setMask(line(), m_box.mask());
    if (m_box.mask().empty() && !before.isEmpty())
        line().setMaxLength(anyLength);
    if (shownText() == qt::toQt(m_box.text()))
        return;
    const QString text = m_box.isBlank() ? QString() : qt::toQt(m_box.text());
    if (!m_box.mask().empty()) {
        masked::show(line(), text);
        return;
    }
    line().setText(text);
    line().setCursorPosition(static_cast<int>(text.size()));
}

// A picked date comes as a typed one does, and is asked about when the box is left.
void MaskedView::offerCalendar() {
    addCalendar([this] { return parseDate(m_box.text()).value_or(m_box.calendarDay); },
                [this](const DateTime& day) { window().edited(m_box, dateText(day)); });
}

void MaskedView::insert(const QString& text) {
    if (m_box.mask().empty()) {
        line().insert(fitted(text));
        return;
    }
    masked::insert(line(), m_box.mask(), text);
}

bool MaskedView::takes(char32_t character) {
    return !m_box.mask().empty() && masked::takes(line(), m_box.mask(), character);
}

// Wherever an empty date is clicked, typing starts with the month.
void MaskedView::clickedInto() {
    if (m_box.isBlank())
        line().setCursorPosition(0);
}

QString MaskedView::fitted(const QString& text) const {
    if (!m_box.mask().empty())
        return text;
    return fittingPart(text, m_box, line().text().size() - line().selectedText().size());
}

QString MaskedView::selection() const {
    return blanked(line().selectedText());
}

QString MaskedView::blanked(const QString& text) const {
    return m_box.mask().empty() ? text : masked::blanked(text);
}

QString MaskedView::shownText() const {
    return blanked(line().displayText());
}

TimeView::TimeView(ui::DatePicker& picker, QWidget* widget, QLabel* label)
    : ControlView(picker, widget, label), m_picker(picker), m_edit(static_cast<QDateTimeEdit*>(widget)) {
    m_edit->setTimeSpec(Qt::UTC); // a wall clock's reading: no hour is missing in spring
    m_edit->setLocale(QLocale::c());
    m_edit->setDisplayFormat(QStringLiteral("hh:mm AP"));
    m_edit->setAcceptDrops(false);
    QObject::connect(m_edit, &QDateTimeEdit::dateTimeChanged, m_edit, [this](const QDateTime& value) {
        if (!isWriting())
            window().written(m_picker, fromQt(value));
    });
}

void TimeView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    const QDateTime value = toQt(m_picker.value());
    if (aspect != ui::Aspect::Text || m_edit->dateTime() == value)
        return;
    write([&] { m_edit->setDateTime(value); });
}

void TimeView::selectContent() {
    // The first part, so that typing digits fills part after part.
    m_edit->setSelectedSection(m_edit->sectionAt(0));
}

// One letter is enough to change between morning and afternoon.
bool TimeView::takes(char32_t character) {
    if (m_edit->currentSection() != QDateTimeEdit::AmPmSection)
        return false;
    const char32_t letter = text::upper(character);
    const QTime time = m_edit->time();
    if (letter == U'A' || letter == U'P') {
        m_edit->setTime(QTime(time.hour() % 12 + (letter == U'P' ? 12 : 0), time.minute(), time.second()));
        m_edit->setSelectedSection(QDateTimeEdit::AmPmSection);
    }
    return letter >= U'A' && letter <= U'Z';
}

// A whole time in another spelling is taken, too; anything else changes nothing.
void TimeView::insert(const QString& text) {
    const std::optional<DateTime> time = parseTime(qt::fromQt(text));
    if (!time)
        return;
    DateTime value = m_picker.value();
    value.hour = time->hour;
    value.minute = time->minute;
    value.second = time->second;
    window().edited(m_picker, value);
}

QString TimeView::shownText() const {
    return m_edit->text();
}

QPoint TimeView::clickPoint() const {
    return {8, m_edit->height() / 2}; // on the text, not on the arrows
}

ComboView::ComboView(ui::ComboBox& box, QWidget* widget, QLabel* label)
    : ControlView(box, widget, label), m_box(box), m_list(static_cast<QComboBox*>(widget)) {
    QObject::connect(m_list, &QComboBox::currentIndexChanged, m_list, [this](int index) { follow(index); });
    if (QAccessible::isActive())
        followMarks(); // which makes the list, and takes its time
}

// An assistive program marks an entry of the list, and means the choice. While the list is open a mark is none yet.
void ComboView::followMarks() {
    QObject::connect(m_list->view()->selectionModel(), &QItemSelectionModel::selectionChanged, m_list,
                     [this](const QItemSelection& marked) {
                         if (!isWriting() && !marked.isEmpty() && !m_list->view()->isVisible())
                             m_list->setCurrentIndex(marked.indexes().first().row());
                     });
}

// Whoever chooses an entry, the clerk or an assistive program, picks it.
void ComboView::follow(int index) {
    if (isWriting())
        return;
    if (index >= 0 && window().requestFocus(m_box))
        window().picked(m_box, index);
    if (!isReleased())
        write([this] { showChoice(); });
}

void ComboView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Items) {
        write([this] { showItems(); });
    } else if (aspect == ui::Aspect::Text) {
        write([this] { showChoice(); });
    }
}

void ComboView::showItems() {
    m_list->clear();
    for (const std::string& item : m_box.items())
        m_list->addItem(qt::toQt(item));
    showChoice();
}

void ComboView::showChoice() {
    // A text that is no entry is shown in the place of a choice.
    m_list->setPlaceholderText(m_box.index() < 0 ? qt::toQt(m_box.text()) : QString());
    m_list->setCurrentIndex(m_box.index());
}

QString ComboView::shownText() const {
    return m_list->currentIndex() < 0 ? m_list->placeholderText() : m_list->currentText();
}

} // namespace opd::qt
