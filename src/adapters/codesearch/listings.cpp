#include "adapters/codesearch/listings.h"

#include "platform/ado/recordset.h"
#include "platform/text/text.h"

#include <algorithm>

namespace opd::codesearch {

const std::vector<Listing>& listings() {
    static const std::vector<Listing> all{
        {0,
         "AddressRecord",
         "Build_File..tbCoAddress",
         {{"ResultCode", "ZipCode"}, {"Town", "Town"}, {"Province", "Province"}}},
        {2, "ReligionRecord", "Build_File..tbCoReligion", {{"ResultCode", "ReligionID"}, {"Religion", "Religion"}}},
        {7,
         "NationalityRecord",
         "Build_File..tbCoNationality",
         {{"ResultCode", "NationalityID"}, {"Nationality", "Nationality"}}},
    };
    return all;
}

const Listing* findListing(int number) {
    const auto found = std::find_if(listings().begin(), listings().end(),
                                    [&](const Listing& listing) { return listing.number == number; });
    return found == listings().end() ? nullptr : &*found;
}

std::string statementFor(const Listing& listing, const std::string& code) {
    std::string columns;
    for (const Listing::Field& field : listing.fields)
        columns += (columns.empty() ? "" : ", ") + std::string{field.column};
    return "Select " + columns + " from " + listing.table + " where " + listing.fields.front().column + " = '" + code +
           "'";
}

std::optional<Row> lookUp(ado::Connection& connection, const Listing& listing, const std::string& code) {
    const std::string wanted = text::trimmed(code);
    if (wanted.empty() || wanted.find('\'') != std::string::npos)
        return std::nullopt;
    ado::Recordset rows;
    rows.CursorLocation = ado::CursorLocation::Client;
    rows.Open(statementFor(listing, wanted), connection);
    if (rows.RecordCount() != 1)
        return std::nullopt;
    Row row;
    for (const Listing::Field& field : listing.fields)
        row[field.member] = rows.Fields(field.column).asText();
    return row;
}

} // namespace opd::codesearch
