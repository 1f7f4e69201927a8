#pragma once

#include "registration/record/form_context.h"

/// The dependents of a patient: children, each with a name and a birth date, a row each of the grid `mshDependents`.
namespace opd::registration {

/// Fills the grid with the stored dependents of the patient and one empty row for the next one. Without any the grid
/// stays as it is. Throws ado::Error.
void LoadDependents(FormContext& form);

/// Puts the rows of the grid that have both a name and a birth date in the place of the patient's stored dependents,
/// all of them or none. Throws ado::Error.
void SaveDependents(FormContext& form);

/// Lets the clerk edit the grid: a click, Enter, F2 or Space opens the box `txtEntry` over the current cell, Enter in
/// it leads from name to birth date to the next child, Delete or Backspace on the grid takes a dependent away.
void bindDependents(FormContext& form);

} // namespace opd::registration
