#pragma once

#include "adapters/codesearch/listing_fields.h"
#include "adapters/codesearch/listings.h"
#include "platform/ui/desktop.h"
#include "platform/ui/window.h"

#include <optional>
#include <string>
#include <vector>

namespace opd::codesearch {

/// The window in which the clerk picks a row of a listing. What is typed narrows the list to the rows whose code or
/// name holds it, in any letter case; the rows are in memory, so a keystroke asks no database.
class ListingWindow {
  public:
    ListingWindow(ui::Desktop& desktop, const Listing& listing, std::vector<std::vector<std::string>> rows,
                  const std::string& company);

    /// True when a row holds the text.
    bool hasMatch(const std::string& text) const;

    /// Shows the rows that hold the text and returns the picked one; nothing when the clerk cancelled.
    std::optional<Row> pick(const std::string& text);

  private:
    void bind();
    void filter();
    void select();
    std::vector<ui::Grid::Row> matches(const std::string& text) const;

    ui::Desktop& m_desktop;
    const Listing& m_listing;
    std::vector<std::vector<std::string>> m_rows;
    std::vector<std::string> m_searched; ///< of each row: its texts in upper case
    ui::Window m_window;
    ListingFields m_fields{m_window};
    std::optional<Row> m_picked;
};

} // namespace opd::codesearch
