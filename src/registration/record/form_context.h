#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// What the loaders, rules and the save work on: the form's window, its controls, and the values behind them.
struct FormContext {
    Session& session;
    ui::Window& window;
    Fields& fields;
    Record& record;
};

} // namespace opd::registration
