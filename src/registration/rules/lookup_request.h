#pragma once

#include "base/text/text.h"
#include "registration/form_context.h"
#include "registration/rules/validate_data.h"
#include "ui/window.h"

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

/// Names the code on whose row the next list opens, for either kind of list.
inline void openOn(Session& session, const std::string& code) {
    session.globals.presentCode = code;
    if (code.empty())
        return;
    try {
        session.globals.gCodeSearch.set("PresentCode", code);
    } catch (const com::Error&) { // a component that does not know the wish opens its list at the top
    }
}

/// The request of a field. A lookup button's wish holds for this one lookup, however it ends.
inline LookupRequest takeRequest(Session& session, const ui::TextBox& code) {
    const bool forced = std::exchange(session.globals.gForceSearch, false);
    openOn(session, forced ? text::trimmed(code.text()) : std::string{});
    return {forced, forced ? std::string{} : code.text()};
}

/// Marks a field as refused, or as accepted, and returns whether it is refused, for the field's validation. What is
/// refused is selected, so that typing again replaces it. A mark of the check before a save stays until that is met.
inline bool refusedUnless(FormContext& form, bool accepted, ui::Control& field, const char* reason) {
    if (!accepted) {
        field.setRefusal(reason);
        form.window.setFocus(field);
    } else if (!isStandingFault(form, field)) {
        field.setRefusal({});
    }
    return !accepted;
}

/// Likewise for a code field. A list that was closed without a choice keeps the clerk in the field, and says nothing
/// about what stands there.
inline bool refusedAfter(FormContext& form, const LookupRequest& request, bool found, ui::TextBox& code,
                         const char* reason) {
    if (found || !request.forced)
        return refusedUnless(form, found, code, reason);
    form.window.setFocus(code);
    return true;
}

} // namespace opd::registration
