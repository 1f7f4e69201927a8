#pragma once

#include "registration/fields/fields.h"
#include "registration/subrecords/dependent_columns.h"
#include "ui/desktop.h"

#include <string>

namespace opd::registration {

/// Lets the clerk edit the grid of dependents, for as long as it lives: a click, Enter, F2 or Space opens the box
/// `txtEntry` over the current cell, Enter in it leads from name to birth date to the next child, Delete or Backspace
/// on the grid takes a dependent away.
class DependentsEditor {
  public:
    DependentsEditor(ui::Desktop& desktop, EmploymentTab& employment);
    DependentsEditor(const DependentsEditor&) = delete;
    DependentsEditor& operator=(const DependentsEditor&) = delete;

  private:
    void open();
    void close();
    void pressedOnGrid(ui::KeyPress& press);
    void pressedInEntry(ui::KeyPress& press);
    void refuseInvalidDate(bool& refuse);
    void takeOverAndHide();
    void enterName();
    void enterBirthDate();
    void moveTo(int row, int column);
    void removeCurrent();
    void stay(const ui::Message& message);
    void writeBirthDate(const DateTime& date);
    bool isBirthDate() const { return m_column == birthDateColumn; }
    bool isChanged() const { return m_entry.text() != m_offered; }

    ui::Desktop& m_desktop;
    ui::Grid& m_grid;
    ui::MaskedBox& m_entry;
    int m_row = 0; ///< the cell that is edited
    int m_column = 0;
    std::string m_offered; ///< what the box held when it was opened
};

} // namespace opd::registration
