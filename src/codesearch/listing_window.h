#pragma once

#include "codesearch/listing_fields.h"
#include "codesearch/listings.h"
#include "ui/desktop.h"
#include "ui/window.h"

#include <optional>
#include <string>
#include <vector>

namespace opd::codesearch {

/// The window in which the clerk picks a row of a listing. What is typed narrows the list to the rows whose code or
/// name holds it, whatever the letter case and the accents, the best match first; the rows are in memory, so a
/// keystroke asks no database.
class ListingWindow {
  public:
    ListingWindow(ui::Desktop& desktop, const Listing& listing, ado::ResultSet rows, const std::string& company);

    /// True when a row holds the text.
    bool hasMatch(const std::string& text) const;

    /// Shows the rows that hold the text and returns the picked one; nothing when the clerk cancelled. For an empty
    /// text the row of the present code is the current one; without such a row there is none until the clerk moves or
    /// types, so that no key pressed too often picks a row that nobody chose.
    std::optional<Row> pick(const std::string& text, const std::string& present);

  private:
    void bind();
    void filter();
    void rowChanged();
    int rowOf(const std::string& code) const;
    std::string cell(std::size_t place, std::size_t column) const;
    void select();
    std::vector<std::size_t> matches(const std::string& text) const;

    ui::Desktop& m_desktop;
    const Listing& m_listing;
    ado::ResultSet m_rows;
    std::vector<std::size_t> m_shown; ///< the places of the rows that hold what is typed, the best match first
    ui::Window m_window;
    ListingFields m_fields{m_window};
    std::optional<Row> m_picked;
};

} // namespace opd::codesearch
