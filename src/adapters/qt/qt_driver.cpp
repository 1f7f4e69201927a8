#include "adapters/qt/qt_driver.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/window_shell.h"

#include "base/clock/date_text.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
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
    const ControlView* const target = view(control);
    if (target != nullptr && qobject_cast<QLineEdit*>(target->widget()) != nullptr)
        click(control);
    else if (target != nullptr)
        shell()->model().requestFocus(control);
    hands::settle();
}

void QtDriver::click(ui::Control& control) {
    if (const ControlView* target = view(control))
        hands::click(*target->widget(), target->clickPoint());
    hands::settle();
}

void QtDriver::doubleClick(ui::Grid& grid) {
    if (const ControlView* target = view(grid)) {
        auto* table = static_cast<QTableView*>(target->widget());
        const QModelIndex current = table->currentIndex();
        table->scrollTo(current);
        const QRect place = current.isValid() ? table->visualRect(current) : table->viewport()->rect();
        hands::doubleClick(*table->viewport(), place.center());
    }
    hands::settle();
}

// Opens the list by keyboard and goes down to the entry, so that only the entry that is taken counts as picked.
void QtDriver::pickEntry(ui::ComboBox& box, int index) {
    const ControlView* const target = view(box);
    if (target == nullptr || !shell()->model().requestFocus(box))
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
    if (const ControlView* target = view(tabs)) {
        QTabBar* bar = static_cast<QTabWidget*>(target->widget())->tabBar();
        hands::click(*bar, bar->tabRect(index).center());
    }
    hands::settle();
}

void QtDriver::pickCell(ui::Grid& grid, int row, int column) {
    if (const ControlView* target = view(grid)) {
        auto* table = static_cast<QTableView*>(target->widget());
        const QModelIndex index = table->model()->index(row - 1, column);
        table->scrollTo(index);
        hands::click(*table->viewport(), table->visualRect(index).center());
    }
    hands::settle();
}

void QtDriver::setPicker(ui::DatePicker& picker, const DateTime& value) {
    const ControlView* const target = view(picker);
    if (target == nullptr)
        return;
    click(picker);
    // A window that becomes active while a part is typed would start the field anew.
    hands::waitUntilActive(*shell());
    if (picker.format() == ui::DatePicker::Format::Date) {
        selectContent();
        type(dateText(value));
        return;
    }
    auto* const edit = static_cast<QDateTimeEdit*>(target->widget());
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
    const ControlView* const target = view(control);
    return target != nullptr && target->widget() != nullptr && target->widget()->isVisible();
}

bool QtDriver::isEnabled(ui::Control& control) {
    const ControlView* const target = view(control);
    return target != nullptr && target->widget() != nullptr && target->widget()->isEnabled();
}

bool QtDriver::isChecked(ui::Control& control) {
    const ControlView* const target = view(control);
    return target != nullptr && target->isChecked();
}

bool QtDriver::isNeeded(ui::Control& control) {
    const ControlView* const target = view(control);
    return target != nullptr && target->widget() != nullptr && target->widget()->property("needed").toBool();
}

bool QtDriver::hasFocus(ui::Control& control) {
    const ControlView* const target = view(control);
    return target != nullptr && target->widget() != nullptr && shell()->focusWidget() == target->widget();
}

int QtDriver::rowCount(ui::Grid& grid) {
    const ControlView* const target = view(grid);
    return target == nullptr ? 0 : static_cast<QTableView*>(target->widget())->model()->rowCount();
}

std::string QtDriver::cell(ui::Grid& grid, int row, int column) {
    const ControlView* const target = view(grid);
    if (target == nullptr)
        return {};
    const QAbstractItemModel* rows = static_cast<QTableView*>(target->widget())->model();
    return fromQt(rows->index(row - 1, column).data().toString());
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
