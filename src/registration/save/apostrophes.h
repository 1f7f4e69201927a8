#pragma once

#include "registration/fields/fields.h"
#include "ui/desktop.h"
#include "ui/window.h"

namespace opd::registration {

/// Takes the apostrophes, which no statement can carry, out of everything that the form sends: another program stored
/// them. For a field that the clerk sees the clerk is asked, once a field; where nobody sees one it becomes a grave
/// accent by itself. False when the clerk declined: the focus is at the field then, and nothing else was changed.
bool settleApostrophes(ui::Desktop& desktop, const ui::Window& window, Fields& fields);

/// Takes back the mark that a declined question leaves, when the field was changed into something that can be stored.
void takeBackUnstorable(ui::Control& changed);

} // namespace opd::registration
