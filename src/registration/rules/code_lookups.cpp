#include "registration/rules/code_lookups.h"

#include "base/text/text.h"
#include "registration/rules/lookup_request.h"
#include "ui/window.h"

#include <array>

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
    std::int32_t listing;
    const char* record;
    std::string (*nameOf)(const com::Object& record);
};

CodeLookup nationalityLookup(Fields& fields) {
    PersonalTab& personal = fields.personal;
    return {personal.txtNationality, personal.nationalityName, 7, "NationalityRecord", nationalityName};
}

std::array<CodeLookup, 3> lookupsOf(Fields& fields) {
    PersonalTab& personal = fields.personal;
    return {{{personal.txtZipCode, personal.townName, 0, "AddressRecord", townAndProvince},
             nationalityLookup(fields),
             {personal.txtReligion, personal.religionName, 2, "ReligionRecord", religionName}}};
}

/// Resolves the field's code; false when no record was found or chosen.
bool resolve(Session& session, const CodeLookup& lookup, const LookupRequest& request) {
    if (request.isNone()) {
        lookup.name.setText("");
        return true;
    }
    const com::Object& codeSearch = session.globals.gCodeSearch;
    if (!codeSearch.flag("SearchListing", {request.text, lookup.listing}))
        return false;
    const com::Object record = codeSearch.object(lookup.record);
    lookup.code.setText(record.text("ResultCode"));
    lookup.name.setText(lookup.nameOf(record));
    return true;
}

/// Lets the code search resolve exact codes alone, without a window, until the end of its scope.
class ExactCodesOnly {
  public:
    explicit ExactCodesOnly(const com::Object& codeSearch) : m_codeSearch(codeSearch), m_holds(set(true)) {}
    ~ExactCodesOnly() { set(false); }
    ExactCodesOnly(const ExactCodesOnly&) = delete;
    ExactCodesOnly& operator=(const ExactCodesOnly&) = delete;

    /// False for a component that does not know the wish.
    bool holds() const { return m_holds; }

  private:
    bool set(bool wanted) noexcept {
        try {
            m_codeSearch.set("ExactCodesOnly", wanted);
            return true;
        } catch (const com::Error&) {
            return false;
        }
    }

    const com::Object& m_codeSearch;
    bool m_holds;
};

/// Barangay and patient classification are resolved by the form's own search; emptied, they change nothing.
void bindSearchedCode(FormContext& form, ui::TextBox& code, ui::TextBox& name,
                      bool (search::clsSearch::*search)(const std::string&), bool trims) {
    code.onValidate = [&form, &code, &name, search, trims](bool& refuse) {
        const LookupRequest request = takeRequest(form.session, code);
        bool accepted = request.isNone();
        if (!accepted && (form.codes.*search)(trims ? text::trimmed(request.text) : request.text)) {
            code.setText(form.codes.Code());
            name.setText(form.codes.Description());
            accepted = true;
        }
        refuse = refusedAfter(form, request, accepted, code, "This code is unknown.");
    };
}

/// A lookup button leaves its code field with the wish for the whole list.
void bindLookupButton(FormContext& form, ui::Button& button, ui::TextBox& code) {
    button.serves = &code;
    button.onClick = [&form, &code] {
        form.session.globals.gForceSearch = true;
        form.window.setFocus(code);
        form.window.sendTab();
    };
}

void bindLookupButtons(FormContext& form) {
    Fields& fields = form.fields;
    ConsultationTab& consultation = fields.consultation;
    const std::pair<int, ui::TextBox*> codeOfButton[] = {
        {0, &consultation.txtService(0)},     {1, &consultation.txtService(2)},    {2, &consultation.txtService(4)},
        {3, &fields.personal.txtNationality}, {4, &fields.personal.txtReligion},   {5, &fields.personal.accountNumber},
        {6, &consultation.txtDoctor(0)},      {7, &consultation.txtDoctor(2)},     {8, &fields.personal.txtBarangayID},
        {9, &fields.personal.txtZipCode},     {10, &fields.history.txtAllergy(0)}, {11, &fields.history.txtAllergy(1)},
        {12, &fields.history.txtAllergy(2)},  {13, &fields.history.txtAllergy(3)}, {14, &fields.history.txtAllergy(4)},
        {15, &consultation.txtAddDoctor(0)},  {16, &consultation.txtAddDoctor(2)}, {17, &consultation.txtAddDoctor(4)}};
    for (const auto& [index, code] : codeOfButton)
        bindLookupButton(form, fields.cmdSearch(index), *code);
    bindLookupButton(form, fields.additional.cmdPatientClass, fields.additional.txtPatientClassID);
}

} // namespace

void bindCodeLookups(FormContext& form) {
    for (const CodeLookup& lookup : lookupsOf(form.fields))
        lookup.code.onValidate = [&form, lookup](bool& refuse) {
            const LookupRequest request = takeRequest(form.session, lookup.code);
            refuse = refusedAfter(form, request, resolve(form.session, lookup, request), lookup.code,
                                  "This code is unknown.");
        };
    PersonalTab& personal = form.fields.personal;
    AdditionalTab& additional = form.fields.additional;
    bindSearchedCode(form, personal.txtBarangayID, personal.txtBarangayName, &search::clsSearch::SearchBarangay, false);
    bindSearchedCode(form, additional.txtPatientClassID, additional.txtPatientClass,
                     &search::clsSearch::SearchAdmittingType, true);
    bindLookupButtons(form);
}

void resolveNationality(FormContext& form) {
    form.session.globals.gForceSearch = false;
    const CodeLookup lookup = nationalityLookup(form.fields);
    const ExactCodesOnly exact(form.session.globals.gCodeSearch);
    if (exact.holds() || lookup.name.text().empty())
        resolve(form.session, lookup, {false, lookup.code.text()});
}

} // namespace opd::registration
