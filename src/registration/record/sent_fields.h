#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/globals.h"

namespace opd::registration {

/// False for a field that no statement of the form reads: one that only shows what a code stands for or what the system
/// decides, or a note for the screen.
bool isSent(const Fields& fields, const ui::Control& field);

/// Likewise, where it depends on the hospital and on who pays.
bool isSentHere(const Fields& fields, const ui::Control& field, const Globals& globals, const Record& record);

/// What a save stores of a box that holds this text: some are raised to upper case.
std::string textToStore(const Fields& fields, const ui::TextBox& box);

/// True when a save stores the letter of authorization.
bool savesAuthorization(const Globals& globals, const Record& record);

} // namespace opd::registration
