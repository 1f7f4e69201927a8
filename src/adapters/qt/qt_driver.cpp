#include "adapters/qt/qt_driver.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/look/marks.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/window_shell.h"
#include "base/clock/date_text.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTimeEdit>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

#include <stdexcept>

namespace opd::qt {

WindowShell* QtDriver::shell() const {
    return m_desktop.currentShell();
}

ControlView* QtDriver::view(ui::Control& control) const {
    WindowShell* const current = shell();
    return current == nullptr ? nullptr : current->viewOf(control);
}

/// The widget that shows a control, or null.
QWidget* QtDriver::widget(ui::Control& control) const {
    const ControlView* const shown = view(control);
    return shown == nullptr ? nullptr : shown->widget();
}

QTableView* QtDriver::table(ui::Grid& grid) const {
    return static_cast<QTableView*>(widget(grid));
}

ui::Window* QtDriver::currentWindow() {
    WindowShell* const current = shell();
    return current == nullptr ? nullptr : &current->model();
}

void QtDriver::press(const script::KeyStroke& key) {
    if (WindowShell* current = shell())
        hands::press(*current, key);
    hands::settle();
}

// A press on a button cannot be told from a click, so those are asked for as the press would ask.
void QtDriver::focus(ui::Control& control) {
    if (qobject_cast<QLineEdit*>(widget(control)) != nullptr)
        click(control);
    else if (view(control) != nullptr)
        shell()->model().requestFocus(control);
    hands::settle();
}

void QtDriver::click(ui::Control& control) {
    if (const ControlView* target = view(control))
        hands::click(*target->widget(), target->clickPoint());
    hands::settle();
}

void QtDriver::doubleClick(ui::Grid& grid) {
    if (QTableView* shown = table(grid)) {
        const QModelIndex current = shown->currentIndex();
        shown->scrollTo(current);
        const QRect place = current.isValid() ? shown->visualRect(current) : shown->viewport()->rect();
        hands::doubleClick(*shown->viewport(), place.center());
    }
    hands::settle();
}

// Opens the list by keyboard and goes down to the entry, so that only the entry that is taken counts as picked.
void QtDriver::pickEntry(ui::ComboBox& box, int index) {
    if (view(box) == nullptr || !shell()->model().requestFocus(box))
        return;
    hands::press(*shell(), {.key = ui::Key::Down, .alt = true});
    hands::settle();
    QWidget* const list = QApplication::activePopupWidget();
    if (list == nullptr)
        throw std::runtime_error("the list of " + box.name() + " does not open");
    hands::press(*list, {.key = ui::Key::Home});
    for (int i = 0; i < index; ++i)
        hands::press(*list, {.key = ui::Key::Down});
    hands::press(*list, {.key = ui::Key::Enter});
    hands::settle();
}

void QtDriver::pickPage(ui::Tabs& tabs, int index) {
    if (QWidget* shown = widget(tabs)) {
        QTabBar* bar = static_cast<QTabWidget*>(shown)->tabBar();
        hands::click(*bar, bar->tabRect(index).center());
    }
    hands::settle();
}

void QtDriver::pickCell(ui::Grid& grid, int row, int column) {
    if (QTableView* shown = table(grid)) {
        const QModelIndex index = shown->model()->index(row - 1, column);
        shown->scrollTo(index);
        hands::click(*shown->viewport(), shown->visualRect(index).center());
    }
    hands::settle();
}

void QtDriver::setPicker(ui::DatePicker& picker, const DateTime& value) {
    QWidget* const shown = widget(picker);
    if (shown == nullptr)
        return;
    click(picker);
    // A window that becomes active while a part is typed would start the field anew.
    hands::waitUntilActive(*shell());
    if (picker.format() == ui::DatePicker::Format::Date) {
        selectContent();
        type(dateText(value));
        return;
    }
    auto* const edit = static_cast<QDateTimeEdit*>(shown);
    const auto enter = [&](QDateTimeEdit::Section section, const std::string& text) {
        edit->setSelectedSection(section);
        type(text);
    };
    const std::string text = timeText(value);
    enter(QDateTimeEdit::HourSection, text.substr(0, 2));
    enter(QDateTimeEdit::MinuteSection, text.substr(3, 2));
    enter(QDateTimeEdit::AmPmSection, text.substr(6));
}

void QtDriver::type(const std::string& characters) {
    for (const char character : characters)
        press({.character = static_cast<char32_t>(character)});
}

void QtDriver::selectContent() {
    WindowShell* const current = shell();
    if (ControlView* focused = current == nullptr ? nullptr : current->focusView())
        focused->selectContent();
}

void QtDriver::setClipboard(const std::string& text) {
    QApplication::clipboard()->setText(toQt(text));
}

std::string QtDriver::selection() {
    const WindowShell* const current = shell();
    const ControlView* const focused = current == nullptr ? nullptr : current->focusView();
    return focused == nullptr ? std::string() : fromQt(focused->selection());
}

std::string QtDriver::shownText(ui::Control& control) {
    const ControlView* const target = view(control);
    return target == nullptr ? std::string() : fromQt(target->shownText());
}

std::string QtDriver::statusLine() {
    const WindowShell* const current = shell();
    return current == nullptr ? std::string() : fromQt(current->statusText());
}

bool QtDriver::isShown(ui::Control& control) {
    const QWidget* const shown = widget(control);
    return shown != nullptr && shown->isVisible();
}

bool QtDriver::isEnabled(ui::Control& control) {
    const QWidget* const shown = widget(control);
    return shown != nullptr && shown->isEnabled();
}

bool QtDriver::isChecked(ui::Control& control) {
    const ControlView* const target = view(control);
    return target != nullptr && target->isChecked();
}

bool QtDriver::isNeeded(ui::Control& control) {
    return isMarked(widget(control), "needed");
}

bool QtDriver::hasFocus(ui::Control& control) {
    const QWidget* const shown = widget(control);
    return shown != nullptr && shell()->focusWidget() == shown;
}

int QtDriver::rowCount(ui::Grid& grid) {
    const QTableView* const shown = table(grid);
    return shown == nullptr ? 0 : shown->model()->rowCount();
}

std::string QtDriver::cell(ui::Grid& grid, int row, int column) {
    const QTableView* const shown = table(grid);
    return shown == nullptr ? std::string() : fromQt(shown->model()->index(row - 1, column).data().toString());
}

void QtDriver::wait(int milliseconds) {
    QElapsedTimer passed;
    passed.start();
    while (passed.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

void QtDriver::screenshot(const std::string& file) {
    WindowShell* const current = shell();
    if (current == nullptr)
        return;
    hands::settle();
    if (!current->grab().save(toQt(file)))
        throw std::runtime_error("the picture " + file + " cannot be written");
}

} // namespace opd::qt
