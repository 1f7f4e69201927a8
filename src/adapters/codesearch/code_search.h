#pragma once

#include "adapters/codesearch/listings.h"

#include "platform/com/connection_object.h"
#include "platform/com/late_bound.h"
#include "platform/com/server.h"

#include <map>
#include <string>

namespace opd::codesearch {

/// The class "Trellicode.clsCodeSearch": finds the row of a reference file that has a code. After a successful
/// `SearchListing` the record of that listing holds the row; a failed one leaves the record as it was.
///
/// Members: Initialize_Classes(); CompanyName, SearchMode, OtherSectionID (texts and flags of the caller, kept);
/// Connection (a connection object); SearchListing(criteria, listing) -> flag; a record for every listing.
/// An exact code is found. An empty or unknown one, and a listing without a line in the table, answer false.
class CodeSearch final : public com::LateBound {
  public:
    explicit CodeSearch(com::Server& server);

  private:
    void keepProperty(const std::string& member);
    bool search(const std::string& criteria, int number);
    com::Variant record(const Listing& listing) const;

    com::Server::Use m_use;
    com::Ref<com::IConnectionObject> m_connection;
    std::map<std::string, com::Variant> m_properties;
    std::map<int, Row> m_found; ///< by listing
};

} // namespace opd::codesearch
