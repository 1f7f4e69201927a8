#include "registration/coded/code_entry.h"

#include "base/text/text.h"
#include "ui/window.h"

#include <utility>

namespace opd::registration {

void CodeEntry::bind(ui::CodedField& field, std::function<bool(const LookupRequest&)> refuses) {
    field.lookup.onClick = [this, &field] {
        m_gForceSearch = true;
        field.code.window().setFocus(field.code);
        field.code.window().sendTab();
    };
    field.code.onValidate = [this, &field, refuses = std::move(refuses)](bool& refuse) {
        refuse = refuses(take(field));
    };
}

void CodeEntry::bind(ui::CodedField& field, const char* reason, std::function<bool(const LookupRequest&)> accepts) {
    bind(field, [&field, reason, accepts = std::move(accepts)](const LookupRequest& request) {
        const bool accepted = accepts(request);
        if (accepted)
            field.accept();
        else if (request.forced)
            field.code.window().setFocus(field.code);
        else
            field.refuse(reason);
        return !accepted;
    });
}

LookupRequest CodeEntry::take(const ui::CodedField& field) {
    if (std::exchange(m_gForceSearch, false))
        return {true, {}, text::trimmed(field.code.text())};
    return {false, field.code.text(), {}};
}

} // namespace opd::registration
