#pragma once

#include "ui/controls.h"
#include "ui/grid.h"

namespace opd::search {

/// Characters that a search box takes: every key may ask the database.
inline constexpr int longestSearch = 100;

/// The controls that both search dialogs have, a line each, in the order in which a clerk meets them.
struct SearchDialogFields {
    explicit SearchDialogFields(ui::Container& form) : window(form) { imgTitle.spokenName = "Magnifying glass"; }

    ui::Container& window;

    ui::Picture imgTitle{window, "imgTitle"};
    ui::Label lblTitle{window, "lblTitle", ""};
    ui::Label lblSTitle{window, "lblSTitle", ""};
    ui::Label lblHospital{window, "lblHospital", "#Hospital#"};
    ui::TextBox txtSearchStr{window, "txtSearchStr", "Search", longestSearch};
    ui::Frame records{window, "fraRecords", "Records List"};
    ui::Grid grdDispWindow{records, "grdDispWindow"};
    ui::Label lblHelpTip{window, "lblHelpTip", "Down arrow moves into the list, Enter selects, Esc leaves."};
    ui::Button cmdSelect{window, "cmdSelect", "&Select"};
    ui::Button cmdCancel{window, "cmdCancel", "&Cancel"};
    ui::Timer Timer1{window, "Timer1", 500};
};

/// The controls of the doctor pick list.
struct PickListFields {
    explicit PickListFields(ui::Container& form) : window(form) { grdMain.spokenName = "Doctors"; }

    ui::Container& window;

    ui::Grid grdMain{window, "grdMain"};
    ui::Button cmdOK{window, "cmdOK", "&OK"};
    ui::Button cmdCancel{window, "cmdCancel", "&Cancel"};
};

} // namespace opd::search
