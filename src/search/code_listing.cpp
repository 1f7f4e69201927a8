#include "search/code_listing.h"

namespace opd::search {

/// The component's number of a listing, and its member that holds the record found.
struct CodeListing::Listing {
    std::int32_t number;
    const char* record;
};

std::optional<Address> CodeListing::address(const CodeWish& wish) const {
    const auto found = find({0, "AddressRecord"}, wish);
    return found ? std::optional<Address>{{found->text("ResultCode"), found->text("Town"), found->text("Province")}}
                 : std::nullopt;
}

std::optional<Doctor> CodeListing::doctor(const CodeWish& wish) const {
    const auto found = find({1, "DoctorRecord"}, wish);
    return found ? std::optional<Doctor>{{found->text("ResultCode"), found->text("LastName"), found->text("FirstName")}}
                 : std::nullopt;
}

std::optional<NamedCode> CodeListing::religion(const CodeWish& wish) const {
    return findNamed({2, "ReligionRecord"}, wish, "Religion");
}

std::optional<Company> CodeListing::company(const CodeWish& wish) const {
    const auto found = find({3, "CompanyRecord"}, wish);
    return found ? std::optional<Company>{{found->text("AccountNumber"), found->text("CompanyName"),
                                           found->text("Class")}}
                 : std::nullopt;
}

std::optional<NamedCode> CodeListing::allergy(const CodeWish& wish) const {
    return findNamed({5, "AllergyRecord"}, wish, "Allergy");
}

std::optional<NamedCode> CodeListing::nationality(const CodeWish& wish) const {
    return findNamed({7, "NationalityRecord"}, wish, "Nationality");
}

std::optional<NamedCode> CodeListing::service(const CodeWish& wish) const {
    return findNamed({9, "ServiceRecord"}, wish, "Service");
}

std::optional<NamedCode> CodeListing::causeOfConsultation(const CodeWish& wish) const {
    m_codeSearch.set("OtherSectionID", std::string{"AA"});
    return findNamed({21, "OtherRevenueRecord"}, wish, "OtherRevenue");
}

std::optional<com::Object> CodeListing::find(const Listing& listing, const CodeWish& wish) const {
    if (!wish.present.empty()) {
        try {
            m_codeSearch.set("PresentCode", wish.present);
        } catch (const com::Error&) { // a component that does not know the wish opens its list at the top
        }
    }
    if (!m_codeSearch.flag("SearchListing", {wish.text, listing.number}))
        return std::nullopt;
    return m_codeSearch.object(listing.record);
}

std::optional<NamedCode> CodeListing::findNamed(const Listing& listing, const CodeWish& wish,
                                                const char* nameMember) const {
    const auto found = find(listing, wish);
    return found ? std::optional<NamedCode>{{found->text("ResultCode"), found->text(nameMember)}} : std::nullopt;
}

bool CodeListing::ExactCodesOnly::set(bool wanted) noexcept {
    try {
        m_codeSearch.set("ExactCodesOnly", wanted);
        return true;
    } catch (const com::Error&) {
        return false;
    }
}

} // namespace opd::search
