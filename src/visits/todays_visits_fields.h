#pragma once

#include "ui/controls.h"
#include "ui/grid.h"

namespace opd::visits {

/// The controls of `frmTodaysVisits`, a line each, in the order in which a clerk meets them.
struct TodaysVisitsFields {
    static constexpr int longestSearch = 100;

    explicit TodaysVisitsFields(ui::Container& form) : window(form) {
        grdVisits.spokenName = "Today's visits";
        grdVisits.hint = "The arrow keys choose a visit, Enter opens it. What is typed is searched for.";
        txtSearch.hint = "Shows the visits that hold this text. The Down arrow leads into the list, Enter opens.";
        chkMine.hint = "Shows the visits alone that were last stored by this desk's user.";
        cmdPrint.hint = "Shows the data sheet of the marked visit, for reading and printing it again.";
        cmdLabel.hint = "F7 shows the label of the marked visit's patient, Shift+F7 prints it at once.";
        cmdCard.hint = "F8 shows the card of the marked visit's patient, Shift+F8 prints it at once.";
        cmdRefresh.hint = "Asks the database for today's visits again.";
    }

    ui::Container& window;
    ui::TextBox txtSearch{window, "txtSearch", "&Search", longestSearch};
    ui::CheckBox chkMine{window, "chkMine", "&Mine only"};
    ui::Label lblCount{window, "lblCount", ""}; ///< "3 of 12"
    ui::Grid grdVisits{window, "grdVisits"};    ///< a visit a row, the newest first
    ui::Button cmdOpen{window, "cmdOpen", "&Open"};
    ui::Button cmdPrint{window, "cmdPrint", "&Print Data Sheet"};
    ui::Button cmdLabel{window, "cmdLabel", "La&bel"};
    ui::Button cmdCard{window, "cmdCard", "C&ard"};
    ui::Button cmdRefresh{window, "cmdRefresh", "&Refresh"};
    ui::Button cmdClose{window, "cmdClose", "&Close"};
};

} // namespace opd::visits
