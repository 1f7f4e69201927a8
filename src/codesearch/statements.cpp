#include "codesearch/statements.h"

namespace opd::codesearch {

namespace {

/// The listing's columns of its table.
ado::Statement selection(const Listing& listing) {
    ado::Statement statement("Select ");
    for (const Listing::Field& field : listing.fields) {
        if (&field != &listing.fields.front())
            statement.text(", ");
        statement.identifier(field.column);
    }
    return statement.text(" from ").identifier(listing.table);
}

/// Adds the condition that keeps the rows of the caller's section, behind the word that joins it to the statement.
template <std::size_t Length>
void addSection(ado::Statement& statement, const Listing& listing, const std::string& section,
                const char (&joint)[Length]) {
    if (listing.sectionColumn != nullptr && !section.empty())
        statement.text(joint).identifier(listing.sectionColumn).text(" = '").value(section).text("'");
}

} // namespace

ado::Statement rowOf(const Listing& listing, const std::string& section, const std::string& code) {
    ado::Statement statement = selection(listing);
    statement.text(" where ").identifier(listing.fields.front().column).text(" = '").value(code).text("'");
    addSection(statement, listing, section, " and ");
    return statement;
}

ado::Statement rowsOf(const Listing& listing, const std::string& section) {
    ado::Statement statement = selection(listing);
    addSection(statement, listing, section, " where ");
    return statement.text(" order by ").identifier(listing.fields[1].column);
}

} // namespace opd::codesearch
