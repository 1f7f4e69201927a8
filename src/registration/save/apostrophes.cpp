#include "registration/save/apostrophes.h"

#include "ado/statement.h"
#include "base/text/text.h"
#include "registration/record/sent_fields.h"
#include "registration/subrecords/dependent_columns.h"

namespace opd::registration {

namespace {

constexpr const char* unstorable = "An apostrophe cannot be stored from this desk.";

bool holdsApostrophe(const std::string& text) {
    return !ado::isSendable(text);
}

std::string graved(const std::string& text) {
    return text::replaced(text, "'", "`");
}

/// The caption as it is spoken; some of the documented ones end in a colon.
std::string spoken(const ui::Control& control) {
    std::string name = text::trimmed(ui::plainCaption(control.caption()));
    if (name.ends_with(':'))
        name.pop_back();
    return text::trimmed(name);
}

/// How a clerk calls a field: by the label beside it, or by the caption of the frame around it.
std::string nameOf(const ui::Control& field) {
    const ui::Container* const frame = field.container();
    const std::string label = spoken(field);
    const std::string around = frame == nullptr ? std::string{} : spoken(*frame);
    if (label.empty() || around.empty())
        return label.empty() ? around : label;
    return around + ": " + label;
}

/// The boxes that a save writes and that hold an apostrophe.
std::vector<ui::TextBox*> unstorableBoxes(const ui::Window& window, const Fields& fields) {
    std::vector<ui::TextBox*> boxes;
    window.forEach([&](ui::Control& control) {
        if (control.kind() != ui::Kind::TextBox)
            return;
        auto& box = static_cast<ui::TextBox&>(control);
        if (holdsApostrophe(box.text()) && isSent(fields, box))
            boxes.push_back(&box);
    });
    return boxes;
}

bool agrees(ui::Desktop& desktop, const ui::Control& field, const std::string& text) {
    return desktop.ask({.text = nameOf(field) +
                                " holds an apostrophe, which cannot be stored from this desk. Store it "
                                "as " +
                                graved(text) + "?",
                        .caption = "Message",
                        .buttons = ui::Buttons::YesNo,
                        .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

bool settle(ui::Desktop& desktop, ui::TextBox& box) {
    if (!box.isHidden() && !agrees(desktop, box, box.text())) {
        box.setRefusal(unstorable);
        box.window().setFocus(box);
        return false;
    }
    box.setText(graved(box.text()));
    return true;
}

bool settleDependents(ui::Desktop& desktop, ui::Grid& grid) {
    for (int row = 1; row <= grid.rowCount(); ++row) {
        const std::string name = grid.cell(row, nameColumn);
        if (!holdsApostrophe(name))
            continue;
        if (!agrees(desktop, grid, name)) {
            grid.setCurrentCell(row, nameColumn);
            grid.window().setFocus(grid);
            return false;
        }
        grid.setCell(row, nameColumn, graved(name));
    }
    return true;
}

} // namespace

bool settleApostrophes(ui::Desktop& desktop, const ui::Window& window, Fields& fields) {
    for (ui::TextBox* box : unstorableBoxes(window, fields))
        if (!settle(desktop, *box))
            return false;
    return settleDependents(desktop, fields.employment.mshDependents);
}

void takeBackUnstorable(ui::Control& changed) {
    if (changed.refusal() == unstorable && !holdsApostrophe(changed.shownText()))
        changed.setRefusal({});
}

} // namespace opd::registration
