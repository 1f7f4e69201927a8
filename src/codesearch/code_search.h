#pragma once

#include "codesearch/listings.h"

#include "ado/connection.h"
#include "com/connection_object.h"
#include "com/late_bound.h"
#include "com/server.h"

#include <map>
#include <string>

namespace opd::codesearch {

/// The class "Trellicode.clsCodeSearch": finds the row of a reference file that has a code, or lets the clerk pick one.
/// After a successful `SearchListing` the record of that listing holds the row; a failed one leaves the record as it
/// was.
///
/// Members: Initialize_Classes(); CompanyName, SearchMode (kept for the caller); OtherSectionID (restricts listing 21);
/// ExactCodesOnly (true: no window and no message, whatever is searched for);
/// PresentCode (the list of the next search for an empty text opens on the row of this code);
/// Connection (a connection object); SearchListing(criteria, listing) -> flag; a record for every listing.
///
/// An exact code resolves at once. Anything else, the empty text included, leads to a window with the rows whose code
/// or name holds the text; when there is none the clerk is told. Without a desktop of its thread only exact codes
/// resolve. A listing without a line in the table answers false.
class CodeSearch final : public com::LateBound {
  public:
    explicit CodeSearch(com::Server& server);

  private:
    void keepProperty(const std::string& member);
    bool search(const std::string& criteria, int number);
    std::optional<Row> pick(const Listing& listing, const std::string& criteria, const std::string& present);
    std::string text(const char* property) const;
    bool exactCodesOnly() const;
    com::Variant record(const Listing& listing) const;

    com::Server& m_server;
    com::Server::Use m_use;
    com::Ref<com::IConnectionObject> m_connection;
    std::map<std::string, com::Variant> m_properties;
    std::map<int, Row> m_found; ///< by listing
};

} // namespace opd::codesearch
