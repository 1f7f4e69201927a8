#pragma once

#include "base/text/text.h"
#include "com/counted.h"
#include "com/object.h"

#include <map>
#include <string>

namespace opd::tests {

/// A record of the code search component: texts by member name.
class RecordStandIn final : public com::Counted<com::ILateBound> {
  public:
    explicit RecordStandIn(std::map<std::string, std::string> members)
        : Counted(com::iidLateBound), m_members(std::move(members)) {}

    com::HResult Invoke(const char* member, com::InvokeKind, const com::Variant*, std::size_t,
                        com::Variant* result) override {
        const auto found = m_members.find(member);
        if (found == m_members.end())
            return com::errorMemberNotFound;
        *result = found->second;
        return com::ok;
    }

  private:
    std::map<std::string, std::string> m_members;
};

/// The code search component as far as the form's three simple code fields need it: code "1000" of listing 0, "1" of
/// listings 2 and 7 are known; every other search answers false. `fail` makes the next search fail.
class ListingStandIn final : public com::Counted<com::ILateBound> {
  public:
    ListingStandIn() : Counted(com::iidLateBound) {}

    com::HResult Invoke(const char* member, com::InvokeKind kind, const com::Variant* arguments, std::size_t,
                        com::Variant* result) override {
        if (kind == com::InvokeKind::Get)
            return record(member, *result);
        if (kind == com::InvokeKind::Set) {
            if (std::string{member} == "ExactCodesOnly")
                m_exactCodesOnly = std::get<bool>(arguments[0]);
            return com::ok;
        }
        if (fail) {
            com::setLastErrorText("The listing cannot be read.");
            return com::errorFail;
        }
        const std::string wanted = std::get<std::string>(arguments[0]);
        const std::int32_t listing = std::get<std::int32_t>(arguments[1]);
        searches.emplace_back(wanted, listing);
        const bool known = listing == 0 ? wanted == "1000" : (listing == 2 || listing == 7) && wanted == "1";
        if (!known && !m_exactCodesOnly)
            ++windows;
        *result = known;
        return com::ok;
    }

    std::vector<std::pair<std::string, std::int32_t>> searches;
    bool fail = false;
    int windows = 0; ///< how many searches would have opened a window

  private:
    static com::HResult record(const std::string& name, com::Variant& result) {
        static const std::map<std::string, std::map<std::string, std::string>> records{
            {"AddressRecord", {{"ResultCode", "1000"}, {"Town", " MANILA "}, {"Province", "METRO MANILA"}}},
            {"NationalityRecord", {{"ResultCode", "1"}, {"Nationality", "FILIPINO"}}},
            {"ReligionRecord", {{"ResultCode", "1"}, {"Religion", "ROMAN CATHOLIC"}}}};
        const auto found = records.find(name);
        if (found == records.end())
            return com::errorMemberNotFound;
        result = com::Ref<com::IUnknown>::taking(new RecordStandIn(found->second));
        return com::ok;
    }

    bool m_exactCodesOnly = false;
};

} // namespace opd::tests
