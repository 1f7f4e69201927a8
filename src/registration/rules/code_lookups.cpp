#include "registration/rules/code_lookups.h"

#include "platform/text/text.h"
#include "platform/ui/window.h"

#include <array>
#include <utility>

namespace opd::registration {

namespace {

std::string townAndProvince(const com::Object& address) {
    return text::trimmed(address.text("Town")) + ", " + address.text("Province");
}

std::string nationalityName(const com::Object& nationality) {
    return nationality.text("Nationality");
}

std::string religionName(const com::Object& religion) {
    return religion.text("Religion");
}

/// A code field: which listing resolves it, and what of the found record names it.
struct CodeLookup {
    ui::TextBox& code;
    ui::TextBox& name;
    ui::Button& button;
    std::int32_t listing;
    const char* record;
    std::string (*nameOf)(const com::Object& record);
};

CodeLookup nationalityLookup(Fields& fields) {
    PersonalTab& personal = fields.personal;
    return {personal.txtNationality, personal.nationalityName, personal.searchNationality, 7,
            "NationalityRecord",     nationalityName};
}

std::array<CodeLookup, 3> lookupsOf(Fields& fields) {
    PersonalTab& personal = fields.personal;
    return {
        {{personal.txtZipCode, personal.townName, personal.searchZipCode, 0, "AddressRecord", townAndProvince},
         nationalityLookup(fields),
         {personal.txtReligion, personal.religionName, personal.searchReligion, 2, "ReligionRecord", religionName}}};
}

/// Resolves the field's code; false when no record was found or chosen. The request of a lookup button holds for this
/// one lookup, however it ends.
bool resolve(Session& session, const CodeLookup& lookup) {
    const bool forced = std::exchange(session.globals.gForceSearch, false);
    if (lookup.code.text().empty() && !forced) {
        lookup.name.setText("");
        return true;
    }
    const com::Object& codeSearch = session.globals.gCodeSearch;
    if (!codeSearch.flag("SearchListing", {forced ? std::string{} : lookup.code.text(), lookup.listing}))
        return false;
    const com::Object record = codeSearch.object(lookup.record);
    lookup.code.setText(record.text("ResultCode"));
    lookup.name.setText(lookup.nameOf(record));
    return true;
}

} // namespace

void bindCodeLookups(FormContext& form) {
    for (const CodeLookup& lookup : lookupsOf(form.fields)) {
        lookup.code.onValidate = [&form, lookup](bool& refuse) { refuse = !resolve(form.session, lookup); };
        lookup.button.onClick = [&form, lookup] {
            form.session.globals.gForceSearch = true;
            form.window.setFocus(lookup.code);
            form.window.sendTab();
        };
    }
}

void resolveNationality(FormContext& form) {
    resolve(form.session, nationalityLookup(form.fields));
}

} // namespace opd::registration
