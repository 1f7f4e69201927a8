#include "registration/coded/code_lookups.h"

#include "base/text/text.h"

namespace opd::registration {

namespace {

using search::CodeListing;
using search::CodeWish;
using search::NamedCode;

constexpr const char* unknownCode = "This code is unknown.";

using Lookup = std::optional<NamedCode> (*)(const CodeListing& listing, const CodeWish& wish);

std::optional<NamedCode> findTown(const CodeListing& listing, const CodeWish& wish) {
    const std::optional<search::Address> found = listing.address(wish);
    if (!found)
        return std::nullopt;
    return NamedCode{found->zipCode, text::trimmed(found->town) + ", " + found->province};
}

std::optional<NamedCode> findNationality(const CodeListing& listing, const CodeWish& wish) {
    return listing.nationality(wish);
}

std::optional<NamedCode> findReligion(const CodeListing& listing, const CodeWish& wish) {
    return listing.religion(wish);
}

/// Resolves the field's code; false when no record was found or chosen.
bool resolve(ui::CodedField& field, Lookup find, const CodeListing& listing, const LookupRequest& request) {
    if (request.isNone()) {
        field.name.setText("");
        return true;
    }
    const std::optional<NamedCode> found = find(listing, request.wish());
    if (found)
        field.show(found->code, found->name);
    return found.has_value();
}

} // namespace

CodeLookups::CodeLookups(Fields& fields, CodeEntry& entry, const CodeListing& listing, search::clsSearch& codes)
    : m_entry(entry), m_codes(codes) {
    const std::pair<ui::CodedField*, Lookup> listed[] = {{&fields.personal.town, findTown},
                                                         {&fields.personal.nationality, findNationality},
                                                         {&fields.personal.religion, findReligion}};
    for (const auto& [code, lookup] : listed)
        entry.bind(*code, unknownCode, [field = code, find = lookup, &listing](const LookupRequest& request) {
            return resolve(*field, find, listing, request);
        });
    bindSearched(fields.personal.barangay, &search::clsSearch::SearchBarangay, false);
    bindSearched(fields.additional.patientClass, &search::clsSearch::SearchAdmittingType, true);
}

void CodeLookups::bindSearched(ui::CodedField& field, Search search, bool trims) {
    m_entry.bind(field, unknownCode, [this, &field, search, trims](const LookupRequest& request) {
        if (request.isNone())
            return true;
        if (!(m_codes.*search)(trims ? text::trimmed(request.text) : request.text, request.present))
            return false;
        field.show(m_codes.Code(), m_codes.Description());
        return true;
    });
}

void resolveNationality(ui::CodedField& nationality, const CodeListing& listing) {
    const CodeListing::ExactCodesOnly exact(listing);
    if (exact.holds() || nationality.name.text().empty())
        resolve(nationality, findNationality, listing, {false, nationality.code.text(), {}});
}

} // namespace opd::registration
