#pragma once

#include "ui/controls.h"
#include "ui/grid.h"

namespace opd::codesearch {

/// The controls of the listing window, a line each, in the order in which a clerk meets them.
struct ListingFields {
    explicit ListingFields(ui::Container& form) : window(form) { grdListing.spokenName = "Entries"; }

    ui::Container& window;

    ui::Label lblTitle{window, "lblTitle", ""};
    ui::Label lblCompany{window, "lblCompany", ""};
    ui::TextBox txtSearch{window, "txtSearch", "Search", 100};
    ui::Grid grdListing{window, "grdListing"};
    ui::Label lblCount{window, "lblCount", ""};
    ui::Button cmdSelect{window, "cmdSelect", "&Select"};
    ui::Button cmdCancel{window, "cmdCancel", "&Cancel"};
};

} // namespace opd::codesearch
