#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/globals.h"
#include "ui/desktop.h"

#include <array>
#include <string>
#include <vector>

namespace opd::registration {

/// True when the form may be saved; the codes that the save writes are then in the record and in `AccountTypeCode`.
/// Otherwise the clerk was told the first mistake, which is marked at its field, and stands at it.
bool ValidateData(ui::Desktop& desktop, Fields& fields, Record& record, std::string& AccountTypeCode);

/// True when the hospital asks for a patient class and there is none; a save refuses that behind everything else.
bool lacksPatientClass(const Globals& globals, const ui::TextBox& patientClass);

/// The fields for which a save would be refused as the form stands, in the order in which the clerk would be told.
std::vector<ui::Control*> missingFields(Fields& fields, const Globals& globals);

/// The options that the check looks at.
std::array<ui::OptionButton*, 4> checkedChoices(Fields& fields);

/// Binds the taking back of the check's marks: at the change that puts the field right. It adds to the handlers that
/// stand when it is called.
void bindMarks(Fields& fields);

} // namespace opd::registration
