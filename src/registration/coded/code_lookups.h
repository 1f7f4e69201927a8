#pragma once

#include "registration/coded/code_entry.h"
#include "registration/fields/fields.h"
#include "search/code_search.h"

namespace opd::registration {

/// The simple code fields: town, nationality, religion, barangay and patient classification.
class CodeLookups {
  public:
    CodeLookups(Fields& fields, CodeEntry& entry, const search::CodeListing& listing, search::clsSearch& codes);

  private:
    /// Barangay and patient classification are resolved by the form's own search; emptied, they change nothing.
    using Search = bool (search::clsSearch::*)(const std::string& code, const std::string& present);
    void bindSearched(ui::CodedField& field, Search search, bool trims);

    CodeEntry& m_entry;
    search::clsSearch& m_codes;
};

/// Resolves the nationality code where it is an exact one, without a window or a message; any other stays as it is,
/// with the name that is stored for it. Throws com::Error.
void resolveNationality(ui::CodedField& nationality, const search::CodeListing& listing);

} // namespace opd::registration
