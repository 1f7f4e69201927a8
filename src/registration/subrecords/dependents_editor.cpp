#include "registration/subrecords/dependents_editor.h"

#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/subrecords/dependent_columns.h"
#include "ui/window.h"

#include <algorithm>

namespace opd::registration {

namespace {

constexpr int longestName = 64;
constexpr const char* offeredBirthDate = "01/01/1900";

bool isDateKey(char32_t key) {
    return key == ui::key::backspace || key == U'/' || (key >= U'0' && key <= U'9');
}

} // namespace

DependentsEditor::DependentsEditor(ui::Desktop& desktop, EmploymentTab& employment)
    : m_desktop(desktop), m_grid(employment.mshDependents), m_entry(employment.txtEntry) {
    m_grid.onClick = [this] { open(); };
    m_grid.onKeyPress = [this](ui::KeyPress& press) { pressedOnGrid(press); };
    m_entry.onKeyPress = [this](ui::KeyPress& press) { pressedInEntry(press); };
    m_entry.onEscape = [this] { close(); };
    m_entry.onValidate = [this](bool& refuse) { refuseInvalidDate(refuse); };
    m_entry.onLostFocus = [this] { takeOverAndHide(); };
}

void DependentsEditor::open() {
    m_row = m_grid.currentRow();
    m_column = m_grid.currentColumn();
    if (isBirthDate())
        m_entry.setMask(ui::MaskedBox::dateMask, static_cast<int>(ui::MaskedBox::dateMask.size()));
    else
        m_entry.setMask({}, longestName);
    const std::string cell = m_grid.cell(m_row, m_column);
    m_entry.setText(isBirthDate() && text::isBlank(cell) ? offeredBirthDate : cell);
    m_offered = m_entry.text();
    m_entry.setRefusal({});
    m_entry.setVisible(true);
    m_entry.window().setFocus(m_entry);
}

void DependentsEditor::close() {
    m_offered = m_entry.text(); // what is unchanged is not written
    m_grid.window().setFocus(m_grid);
}

void DependentsEditor::pressedOnGrid(ui::KeyPress& press) {
    const bool opens = press.code == ui::key::enter || press.code == ui::key::space;
    const bool removes = press.code == ui::key::backspace;
    if (opens || removes)
        press.drop();
    if (opens)
        open();
    else if (removes)
        removeCurrent();
}

void DependentsEditor::pressedInEntry(ui::KeyPress& press) {
    if (press.code == ui::key::enter) {
        press.drop();
        if (isBirthDate())
            enterBirthDate();
        else
            enterName();
    } else if (isBirthDate() && !isDateKey(press.code)) {
        press.drop();
    }
}

void DependentsEditor::enterName() {
    if (text::isBlank(m_entry.text())) {
        stay({.text = "Dependent Name is required.", .caption = "Notification"});
        return;
    }
    m_grid.setCell(m_row, m_column, m_entry.text());
    moveTo(m_row, birthDateColumn);
}

void DependentsEditor::enterBirthDate() {
    const std::optional<DateTime> date = parseDate(m_entry.text());
    if (!date) {
        stay({.text = "Invalid Birth Date", .icon = ui::Icon::Information});
        return;
    }
    writeBirthDate(*date);
    moveTo(m_row + 1, nameColumn);
}

void DependentsEditor::moveTo(int row, int column) {
    m_grid.setCurrentCell(row, column);
    open();
}

/// Tells what is wrong and leaves the clerk in the box, with everything in it selected.
void DependentsEditor::stay(const ui::Message& message) {
    m_entry.setRefusal(message.text);
    m_desktop.ask(message);
    m_entry.window().setFocus(m_entry);
}

/// A birth date completes its row; behind the last one there is room for another child then.
void DependentsEditor::writeBirthDate(const DateTime& date) {
    m_grid.setCell(m_row, m_column, dateText(date));
    if (m_row == m_grid.rowCount())
        m_grid.addRow();
}

void DependentsEditor::refuseInvalidDate(bool& refuse) {
    if (!isBirthDate() || !isChanged() || m_entry.isBlank() || parseDate(m_entry.text()))
        return;
    refuse = true;
    stay({.text = "Invalid Birth Date", .icon = ui::Icon::Information});
}

void DependentsEditor::takeOverAndHide() {
    if (isChanged() && isBirthDate()) {
        if (const std::optional<DateTime> date = parseDate(m_entry.text()))
            writeBirthDate(*date);
    } else if (isChanged() && !text::isBlank(m_entry.text())) {
        m_grid.setCell(m_row, m_column, m_entry.text());
    }
    m_entry.setVisible(false);
}

/// Behind the last dependent an empty row remains, in which the next one can be written.
void DependentsEditor::removeCurrent() {
    const int removed = m_grid.currentRow();
    m_grid.removeRow(removed);
    const int last = m_grid.rowCount();
    if (last == 0 || !text::isBlank(m_grid.cell(last, nameColumn)) ||
        !text::isBlank(m_grid.cell(last, birthDateColumn)))
        m_grid.addRow();
    m_grid.setCurrentRow(std::min(removed, m_grid.rowCount()));
}

} // namespace opd::registration
