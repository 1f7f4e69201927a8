#include "codesearch/code_search.h"

#include "codesearch/listing_window.h"

#include <utility>

namespace opd::codesearch {

namespace {

/// A found row as the caller sees it: read-only members by name.
class Record final : public com::LateBound {
  public:
    Record(const Row& row, com::Server& server) : m_use(server) {
        for (const auto& [member, text] : row)
            onGet(member, [value = text] { return com::Variant{value}; });
    }

  private:
    com::Server::Use m_use;
};

com::Variant objectVariant(com::IUnknown* object) {
    return com::Variant{com::Ref<com::IUnknown>::taking(object)};
}

} // namespace

CodeSearch::CodeSearch(com::Server& server) : m_server(server), m_use(server) {
    onCall("Initialize_Classes", [this](const Arguments&) {
        m_found.clear();
        return com::Variant{};
    });
    for (const char* member : {"CompanyName", "SearchMode", "OtherSectionID", "ExactCodesOnly", "PresentCode"})
        keepProperty(member);
    onSet("Connection", [this](const com::Variant& value) {
        const auto* object = std::get_if<com::Ref<com::IUnknown>>(&value);
        m_connection =
            com::queried<com::IConnectionObject>(object != nullptr ? object->get() : nullptr, com::iidConnectionObject);
        if (!m_connection)
            throw com::Error(com::errorNoInterface, "Connection must be a database connection object.");
    });
    onCall("SearchListing", [this](const Arguments& arguments) {
        return com::Variant{
            search(com::argument<std::string>(arguments, 0), com::argument<std::int32_t>(arguments, 1))};
    });
    for (const Listing& listing : listings())
        onGet(listing.record, [this, &listing] { return record(listing); });
}

void CodeSearch::keepProperty(const std::string& member) {
    onSet(member, [this, member](const com::Variant& value) { m_properties[member] = value; });
    onGet(member, [this, member] { return m_properties[member]; });
}

bool CodeSearch::search(const std::string& criteria, int number) {
    const Listing* listing = findListing(number);
    if (listing == nullptr)
        return false;
    if (!m_connection)
        throw com::Error(com::errorFail, "The code search has not been given a database connection.");
    const std::string present = text("PresentCode");
    m_properties.erase("PresentCode"); // it is the wish of one search
    std::optional<Row> row = lookUp(*m_connection->connection(), *listing, text("OtherSectionID"), criteria);
    if (!row && !exactCodesOnly())
        row = pick(*listing, criteria, present);
    if (row)
        m_found[number] = std::move(*row);
    return row.has_value();
}

std::optional<Row> CodeSearch::pick(const Listing& listing, const std::string& criteria, const std::string& present) {
    ui::Desktop* const desktop = ui::Desktop::ofThread();
    if (desktop == nullptr)
        return std::nullopt;
    ListingWindow window(*desktop, listing, everyRow(*m_connection->connection(), listing, text("OtherSectionID")),
                         text("CompanyName"));
    if (!window.hasMatch(criteria)) {
        desktop->ask({.text = "No record matches \"" + criteria + "\".",
                      .caption = listing.title,
                      .icon = ui::Icon::Information});
        return std::nullopt;
    }
    return window.pick(criteria, present);
}

bool CodeSearch::exactCodesOnly() const {
    const auto kept = m_properties.find("ExactCodesOnly");
    const auto* value = kept == m_properties.end() ? nullptr : std::get_if<bool>(&kept->second);
    return value != nullptr && *value;
}

std::string CodeSearch::text(const char* property) const {
    const auto kept = m_properties.find(property);
    const auto* value = kept == m_properties.end() ? nullptr : std::get_if<std::string>(&kept->second);
    return value == nullptr ? std::string{} : *value;
}

com::Variant CodeSearch::record(const Listing& listing) const {
    Row row;
    for (const Listing::Field& field : listing.fields)
        row[field.member];
    if (const auto found = m_found.find(listing.number); found != m_found.end())
        row = found->second;
    return objectVariant(new Record(row, m_server));
}

} // namespace opd::codesearch
