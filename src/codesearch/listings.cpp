#include "codesearch/listings.h"

#include "ado/recordset.h"
#include "base/text/text.h"
#include "codesearch/statements.h"

#include <algorithm>

namespace opd::codesearch {

namespace {

ado::Recordset open(ado::Connection& connection, const ado::Statement& statement) {
    ado::Recordset rows;
    rows.CursorLocation = ado::CursorLocation::Client;
    rows.Open(statement, connection);
    return rows;
}

} // namespace

const std::vector<Listing>& listings() {
    static const std::vector<Listing> all{
        {0,
         "Towns and Provinces",
         "AddressRecord",
         "Build_File..tbCoAddress",
         {{"ResultCode", "ZipCode", "Code", 1200},
          {"Town", "Town", "Town", 3600},
          {"Province", "Province", "Province", 3200}}},
        {1,
         "Doctors",
         "DoctorRecord",
         "Build_File..tbCoDoctor",
         {{"ResultCode", "DoctorID", "Code", 1200},
          {"LastName", "LastName", "Last Name", 3200},
          {"FirstName", "FirstName", "First Name", 3600}}},
        {2,
         "Religions",
         "ReligionRecord",
         "Build_File..tbCoReligion",
         {{"ResultCode", "ReligionID", "Code", 1200}, {"Religion", "Religion", "Religion", 6800}}},
        {3,
         "Companies and Insurers",
         "CompanyRecord",
         "Build_File..tbCoCompany",
         {{"AccountNumber", "AccountNum", "Account #", 1600},
          {"CompanyName", "Company", "Name", 5400},
          {"Class", "Class", "Class", 1000}}},
        {5,
         "Allergies",
         "AllergyRecord",
         "Build_File..tbCoAllergy",
         {{"ResultCode", "AllergyID", "Code", 1200}, {"Allergy", "Allergy", "Allergy", 6800}}},
        {7,
         "Nationalities",
         "NationalityRecord",
         "Build_File..tbCoNationality",
         {{"ResultCode", "NationalityID", "Code", 1200}, {"Nationality", "Nationality", "Nationality", 6800}}},
        {9,
         "Services",
         "ServiceRecord",
         "Build_File..tbCoService",
         {{"ResultCode", "ServiceID", "Code", 1200}, {"Service", "Service", "Service", 6800}}},
        {21,
         "Other Revenues",
         "OtherRevenueRecord",
         "Build_File..tbCoOtherRevenue",
         {{"ResultCode", "RevenueID", "Code", 1200}, {"OtherRevenue", "OtherRevenue", "Name", 6800}},
         "SectionID"},
    };
    return all;
}

const Listing* findListing(int number) {
    const auto found = std::find_if(listings().begin(), listings().end(),
                                    [&](const Listing& listing) { return listing.number == number; });
    return found == listings().end() ? nullptr : &*found;
}

std::optional<Row> lookUp(ado::Connection& connection, const Listing& listing, const std::string& section,
                          const std::string& code) {
    const std::string wanted = text::trimmed(code);
    if (wanted.empty() || !ado::isSendable(wanted))
        return std::nullopt;
    const ado::Recordset rows = open(connection, rowOf(listing, section, wanted));
    if (rows.RecordCount() != 1)
        return std::nullopt;
    Row row;
    for (const Listing::Field& field : listing.fields)
        row[field.member] = rows.Fields(field.column).asText();
    return row;
}

ado::ResultSet everyRow(ado::Connection& connection, const Listing& listing, const std::string& section) {
    return open(connection, rowsOf(listing, section)).taken();
}

} // namespace opd::codesearch
