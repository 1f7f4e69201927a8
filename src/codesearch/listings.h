#pragma once

#include "ado/connection.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace opd::codesearch {

/// One kind of code: the table that lists its codes, and how a found row is handed out and shown.
struct Listing {
    struct Field {
        const char* member; ///< of the record
        const char* column; ///< of the table
        const char* title;  ///< of the column in the listing window
        int width;          ///< there, in twips; 0 hides it
    };
    int number;
    const char* title;  ///< of the listing window
    const char* record; ///< the member of the component that holds the last row found
    const char* table;
    std::vector<Field> fields;           ///< the first one is the code
    const char* sectionColumn = nullptr; ///< where the caller's section restricts the rows
};

/// Every listing, a line each.
const std::vector<Listing>& listings();

/// The listing of a number, or null.
const Listing* findListing(int number);

/// A found row: the record's members with their texts.
using Row = std::map<std::string, std::string>;

/// The row of an exact code. Nothing when no row or several have it, when the code is blank, and when it holds a single
/// quote, which no code has and which would end the text in the statement. Throws ado::Error.
std::optional<Row> lookUp(ado::Connection& connection, const Listing& listing, const std::string& section,
                          const std::string& code);

/// Every row of the listing, its values in the order of the fields, sorted by the first shown name. Throws ado::Error.
ado::ResultSet everyRow(ado::Connection& connection, const Listing& listing, const std::string& section);

} // namespace opd::codesearch
