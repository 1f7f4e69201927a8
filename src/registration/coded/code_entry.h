#pragma once

#include "search/code_listing.h"
#include "ui/coded_field.h"

#include <concepts>
#include <string>

namespace opd::registration {

/// What a code field asks its lookup for when it is left.
struct LookupRequest {
    bool forced = false; ///< the lookup button asks for the whole list
    std::string text;    ///< to search for; empty when forced
    std::string present; ///< what stands in the field then, on which the list opens

    /// True when there is nothing to look up.
    bool isNone() const { return !forced && text.empty(); }

    search::CodeWish wish() const { return {text, present}; }
};

/// How a coded field is looked up: when its code is left with something in it, or when its button leaves it with the
/// wish for the whole list. The wish holds for one lookup, however that ends.
class CodeEntry {
  public:
    /// `gForceSearch` is the session's, and holds no wish of an earlier form.
    explicit CodeEntry(bool& gForceSearch) : m_gForceSearch(gForceSearch) { gForceSearch = false; }
    CodeEntry(const CodeEntry&) = delete;
    CodeEntry& operator=(const CodeEntry&) = delete;

    /// Asks `refuses` when the field is left.
    template <std::predicate<const LookupRequest&> Refuses> void bind(ui::CodedField& field, Refuses refuses) {
        bindLookup(field);
        field.code.onValidate = [this, &field, refuses](bool& refuse) { refuse = refuses(take(field)); };
    }

    /// Likewise; a code that is not accepted is refused for the reason given. A list that was closed without a choice
    /// keeps the clerk in the field, and says nothing about what stands there.
    template <std::predicate<const LookupRequest&> Accepts>
    void bind(ui::CodedField& field, const char* reason, Accepts accepts) {
        bind(field, [&field, reason, accepts](const LookupRequest& request) {
            return refusedUnless(accepts(request), field, reason, request);
        });
    }

  private:
    void bindLookup(ui::CodedField& field);
    static bool refusedUnless(bool accepted, ui::CodedField& field, const char* reason, const LookupRequest& request);
    LookupRequest take(const ui::CodedField& field);

    bool& m_gForceSearch;
};

} // namespace opd::registration
