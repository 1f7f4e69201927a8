#pragma once

#include "registration/record/loaded_rows.h"
#include "session/session.h"
#include "ui/grid.h"

#include <string>

/// The dependents of a patient: children, each with a name and a birth date, a row each of the grid `mshDependents`.
namespace opd::registration {

/// Fills the grid with the stored dependents of the patient and one empty row for the next one. Without any the grid
/// stays as it is. Throws ado::Error.
void LoadDependents(const Session& session, ui::Grid& grid, LoadedRows& loaded, const std::string& hospNum);

/// Puts the rows of the grid that have both a name and a birth date in the place of the patient's stored dependents,
/// all of them or none. Throws ado::Error.
void SaveDependents(const Session& session, ui::Grid& grid, const std::string& hospNum);

} // namespace opd::registration
