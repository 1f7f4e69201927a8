#pragma once

#include "platform/ui/controls.h"
#include "session/session.h"

#include <string>
#include <utility>

namespace opd::registration {

/// What a code field asks its lookup for when it is left.
struct LookupRequest {
    bool forced = false; ///< a lookup button asks for the whole list
    std::string text;    ///< to search for; empty when forced

    /// True when there is nothing to look up.
    bool isNone() const { return !forced && text.empty(); }
};

/// The request of a field. A lookup button's wish holds for this one lookup, however it ends.
inline LookupRequest takeRequest(Session& session, const ui::TextBox& code) {
    const bool forced = std::exchange(session.globals.gForceSearch, false);
    return {forced, forced ? std::string{} : code.text()};
}

/// Marks a field as refused, or as accepted. Returns whether it is refused, for the field's validation.
inline bool refusedUnless(bool accepted, ui::Control& field, const char* reason) {
    field.setRefusal(accepted ? std::string{} : std::string{reason});
    return !accepted;
}

} // namespace opd::registration
