#pragma once

#include "registration/fields/fields.h"
#include "registration/record.h"
#include "search/code_search.h"
#include "search/search_chief_complaint.h"
#include "session/session.h"

namespace opd::registration {

/// What the loaders, rules and the save work on: the form's window, its controls, the values behind them, and the
/// searches that the form keeps for its life.
struct FormContext {
    Session& session;
    ui::Window& window;
    Fields& fields;
    Record& record;
    search::clsSearch& codes;
    search::frmSearchChiefComplaint& complaints;
};

} // namespace opd::registration
