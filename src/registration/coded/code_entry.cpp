#include "registration/coded/code_entry.h"

#include "base/text/text.h"
#include "ui/window.h"

#include <utility>

namespace opd::registration {

void CodeEntry::bindLookup(ui::CodedField& field) {
    field.lookup.onClick = [this, &field] {
        m_gForceSearch = true;
        field.code.window().setFocus(field.code);
        field.code.window().sendTab();
    };
}

bool CodeEntry::refusedUnless(bool accepted, ui::CodedField& field, const char* reason, const LookupRequest& request) {
    if (accepted)
        field.accept();
    else if (request.forced)
        field.code.window().setFocus(field.code);
    else
        field.refuse(reason);
    return !accepted;
}

LookupRequest CodeEntry::take(const ui::CodedField& field) {
    if (std::exchange(m_gForceSearch, false))
        return {true, {}, text::trimmed(field.code.text())};
    return {false, field.code.text(), {}};
}

} // namespace opd::registration
