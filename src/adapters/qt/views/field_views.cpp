#include "adapters/qt/views/field_views.h"

#include "adapters/qt/qt_text.h"
#include "platform/text/text.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include <algorithm>

namespace opd::qt {

namespace {

constexpr int anyLength = 32767;

/// The limit is for typing; a longer text set by program is shown whole.
int limitOf(int maxLength, const std::string& shown) {
    return std::max(maxLength > 0 ? maxLength : anyLength, static_cast<int>(qt::toQt(shown).size()));
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
    m_edit->setReadOnly(box.readOnly);
    m_edit->setAcceptDrops(false); // dropped text would pass no key filter
    QObject::connect(m_edit, &QLineEdit::textEdited, m_edit,
                     [this](const QString& text) { window().edited(m_box, qt::fromQt(text)); });
}

void TextView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect != ui::Aspect::Text)
        return;
    const QString text = qt::toQt(m_box.text());
    m_edit->setMaxLength(limitOf(m_box.maxLength(), m_box.text()));
    if (m_edit->text() == text)
        return;
    m_edit->setText(text);
    if (!m_edit->hasFocus())
        m_edit->setCursorPosition(0);
}

void TextView::selectContent() {
    m_edit->selectAll();
}

void TextView::insert(const QString& text) {
    if (!m_edit->isReadOnly())
        m_edit->insert(text);
}

QString TextView::shownText() const {
    return m_edit->text();
}

MemoView::MemoView(ui::TextBox& box, QWidget* widget, QLabel* label)
    : ControlView(box, widget, label), m_box(box), m_edit(static_cast<QPlainTextEdit*>(widget)) {
    m_edit->setReadOnly(box.readOnly);
    m_edit->setAcceptDrops(false);
    m_edit->setTabChangesFocus(true);
    QObject::connect(m_edit, &QPlainTextEdit::textChanged, m_edit,
                     [this] { window().edited(m_box, qt::fromQt(m_edit->toPlainText())); });
}

void MemoView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    const QString text = qt::toQt(m_box.text());
    if (aspect != ui::Aspect::Text || m_edit->toPlainText() == text)
        return;
    const QSignalBlocker quiet(m_edit);
    m_edit->setPlainText(text);
}

void MemoView::selectContent() {
    m_edit->selectAll();
}

void MemoView::insert(const QString& text) {
    if (m_edit->isReadOnly())
        return;
    QString fitting = text;
    if (m_box.maxLength() > 0)
        fitting.truncate(std::max<qsizetype>(0, m_box.maxLength() - m_edit->toPlainText().size() +
                                                    m_edit->textCursor().selectedText().size()));
    m_edit->insertPlainText(fitting);
}

bool MemoView::hasRoom() const {
    return m_box.maxLength() == 0 || m_edit->toPlainText().size() < m_box.maxLength() ||
           m_edit->textCursor().hasSelection();
}

QString MemoView::shownText() const {
    return m_edit->toPlainText();
}

MaskedView::MaskedView(ui::MaskedBox& box, QWidget* widget, QLabel* label)
    : ControlView(box, widget, label), m_box(box), m_edit(static_cast<QLineEdit*>(widget)) {
    m_edit->setAcceptDrops(false);
    // text() leaves the blanks out; what is displayed is what the rules look at.
    QObject::connect(m_edit, &QLineEdit::textEdited, m_edit,
                     [this] { window().edited(m_box, qt::fromQt(m_edit->displayText())); });
}

void MaskedView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect != ui::Aspect::Text)
        return;
    showMask();
    if (m_edit->displayText() == qt::toQt(m_box.text()))
        return;
    m_edit->setText(m_box.isBlank() ? QString() : qt::toQt(m_box.text()));
    m_edit->setCursorPosition(0);
}

void MaskedView::showMask() {
    const QString mask = qt::toQt(m_box.mask()).replace('#', '0'); // the toolkit's sign for a digit or nothing
    if (m_edit->inputMask() != mask)
        m_edit->setInputMask(mask);
    if (mask.isEmpty())
        m_edit->setMaxLength(limitOf(m_box.maxLength(), m_box.text()));
}

void MaskedView::selectContent() {
    m_edit->setCursorPosition(0);
    m_edit->selectAll();
}

void MaskedView::insert(const QString& text) {
    m_edit->insert(text);
}

// Wherever an empty date is clicked, typing starts with the month.
void MaskedView::clickedInto() {
    if (m_box.isBlank())
        m_edit->setCursorPosition(0);
}

QString MaskedView::shownText() const {
    return m_edit->displayText();
}

PickerView::PickerView(ui::DatePicker& picker, QWidget* widget, QLabel* label)
    : ControlView(picker, widget, label), m_picker(picker), m_edit(static_cast<QDateTimeEdit*>(widget)) {
    const bool isDate = picker.format() == ui::DatePicker::Format::Date;
    m_edit->setTimeSpec(Qt::UTC); // a wall clock's reading: no hour is missing in spring
    m_edit->setLocale(QLocale::c());
    m_edit->setDisplayFormat(isDate ? QStringLiteral("MM/dd/yyyy") : QStringLiteral("hh:mm AP"));
    m_edit->setCalendarPopup(isDate);
    m_edit->setAcceptDrops(false);
    QObject::connect(m_edit, &QDateTimeEdit::dateTimeChanged, m_edit,
                     [this](const QDateTime& value) { window().edited(m_picker, fromQt(value)); });
}

void PickerView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    const QDateTime value = toQt(m_picker.value());
    if (aspect != ui::Aspect::Text || m_edit->dateTime() == value)
        return;
    const QSignalBlocker quiet(m_edit);
    m_edit->setDateTime(value);
}

void PickerView::selectContent() {
    // The first part, so that typing digits fills part after part.
    m_edit->setSelectedSection(m_edit->sectionAt(0));
}

// One letter is enough to change between morning and afternoon.
bool PickerView::takes(char32_t character) {
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

QString PickerView::shownText() const {
    return m_edit->text();
}

QPoint PickerView::clickPoint() const {
    return {8, m_edit->height() / 2}; // on the text, not on the button that opens the calendar
}

ComboView::ComboView(ui::ComboBox& box, QWidget* widget, QLabel* label)
    : ControlView(box, widget, label), m_box(box), m_list(static_cast<QComboBox*>(widget)) {
    QObject::connect(m_list, &QComboBox::activated, m_list, [this](int index) { window().picked(m_box, index); });
}

void ComboView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Items) {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const std::string& item : m_box.items())
            m_list->addItem(qt::toQt(item));
        showChoice();
    } else if (aspect == ui::Aspect::Text) {
        showChoice();
    }
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
