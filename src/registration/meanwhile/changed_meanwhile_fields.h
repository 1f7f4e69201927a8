#pragma once

#include "ui/controls.h"
#include "ui/grid.h"

namespace opd::registration {

/// The controls of `frmChangedMeanwhile`, a line each, in the order in which a clerk meets them.
struct ChangedMeanwhileFields {
    explicit ChangedMeanwhileFields(ui::Container& form) : window(form) {
        grdFields.spokenName = "Fields that the other desk changed";
        grdFields.hint = "Up and Down lead from field to field; Tab leads on to what stands in it and to the choices.";
        for (ui::TextBox* memo : {&txtLoaded, &txtStored, &txtWritten}) {
            memo->readOnly = true;
            memo->multiLine = true;
            memo->hint = "Of the field that is marked in the list.";
        }
        cmdSaveMine.hint = "Writes all that the form shows over what the other desk stored.";
        cmdTakeTheirs.hint = "Shows in the form what the other desk stored, and gives up what was typed here.";
        cmdGoBack.hint = "Leads back to the form as it stands. Nothing is saved.";
    }

    ui::Container& window;
    ui::Label lblWhat{window, "lblWhat", ""};
    ui::Label lblWarning{window, "lblWarning", ""}; ///< what a save would undo that nobody here meant to
    ui::Grid grdFields{window, "grdFields"};        ///< a field a row
    ui::TextBox txtLoaded{window, "txtLoaded", "When it was opened here"}; ///< of the current row, whole
    ui::TextBox txtStored{window, "txtStored", "Stored now"};
    ui::TextBox txtWritten{window, "txtWritten", "This desk would write"};
    ui::Button cmdSaveMine{window, "cmdSaveMine", "&Save mine"};
    ui::Button cmdTakeTheirs{window, "cmdTakeTheirs", "&Take theirs"};
    ui::Button cmdGoBack{window, "cmdGoBack", "&Go back"};
};

} // namespace opd::registration
