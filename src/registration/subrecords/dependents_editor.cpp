#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/subrecords/dependent_columns.h"
#include "registration/subrecords/dependents.h"
#include "ui/window.h"

#include <algorithm>
#include <memory>

namespace opd::registration {

namespace {

constexpr int longestName = 64;
constexpr const char* offeredBirthDate = "01/01/1900";

bool isDateKey(char32_t key) {
    return key == ui::key::backspace || key == U'/' || (key >= U'0' && key <= U'9');
}

/// Edits the cells of the grid in the box that floats over the current one.
class DependentsEditor {
  public:
    explicit DependentsEditor(FormContext& form)
        : m_form(form), m_grid(form.fields.employment.mshDependents), m_entry(form.fields.employment.txtEntry) {}

    void open();
    void close();
    void pressedOnGrid(ui::KeyPress& press);
    void pressedInEntry(ui::KeyPress& press);
    void refuseInvalidDate(bool& refuse);
    void takeOverAndHide();

  private:
    void enterName();
    void enterBirthDate();
    void moveTo(int row, int column);
    void removeCurrent();
    void stay(const ui::Message& message);
    void writeBirthDate(const DateTime& date);
    bool isBirthDate() const { return m_column == birthDateColumn; }
    bool isChanged() const { return m_entry.text() != m_offered; }

    FormContext& m_form;
    ui::Grid& m_grid;
    ui::MaskedBox& m_entry;
    int m_row = 0; ///< the cell that is edited
    int m_column = 0;
    std::string m_offered; ///< what the box held when it was opened
};

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
    m_form.window.setFocus(m_entry);
}

void DependentsEditor::close() {
    m_offered = m_entry.text(); // what is unchanged is not written
    m_form.window.setFocus(m_grid);
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
    m_form.session.desktop.ask(message);
    m_form.window.setFocus(m_entry);
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

} // namespace

void bindDependents(FormContext& form) {
    const auto editor = std::make_shared<DependentsEditor>(form);
    ui::Grid& grid = form.fields.employment.mshDependents;
    grid.onClick = [editor] { editor->open(); };
    grid.onKeyPress = [editor](ui::KeyPress& press) { editor->pressedOnGrid(press); };
    ui::MaskedBox& entry = form.fields.employment.txtEntry;
    entry.onKeyPress = [editor](ui::KeyPress& press) { editor->pressedInEntry(press); };
    entry.onEscape = [editor] { editor->close(); };
    entry.onValidate = [editor](bool& refuse) { editor->refuseInvalidDate(refuse); };
    entry.onLostFocus = [editor] { editor->takeOverAndHide(); };
}

} // namespace opd::registration
