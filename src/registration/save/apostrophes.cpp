#include "registration/save/apostrophes.h"

#include "ado/statement.h"
#include "base/text/text.h"
#include "registration/rules/marks.h"
#include "registration/subrecords/dependent_columns.h"
#include "ui/window.h"

#include <algorithm>
#include <functional>

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

/// Boxes that show what a code stands for, and those that no statement reads.
bool isSent(const FormContext& form, const ui::TextBox& box) {
    const ui::TextBox* const unsent[] = {&form.fields.history.txtDiagnosis, &form.fields.personal.txtSeniorID,
                                         &form.fields.consultation.complaint.code,
                                         &form.fields.consultation.complaint.name};
    return !box.readOnly && std::find(std::begin(unsent), std::end(unsent), &box) == std::end(unsent);
}

std::vector<ui::TextBox*> sentBoxes(const FormContext& form) {
    std::vector<ui::Control*> everything;
    form.window.collect(everything);
    std::vector<ui::TextBox*> boxes;
    for (ui::Control* control : everything)
        if (auto* box = dynamic_cast<ui::TextBox*>(control); box != nullptr && isSent(form, *box))
            boxes.push_back(box);
    return boxes;
}

/// True when a clerk can turn to the field, on whatever tab it is.
bool canBeSeen(const ui::Control& field) {
    for (const ui::Control* control = &field; control != nullptr; control = control->container())
        if (!control->visible())
            return false;
    return true;
}

bool agrees(FormContext& form, const ui::Control& field, const std::string& text) {
    return form.session.desktop.ask({.text = nameOf(field) +
                                             " holds an apostrophe, which cannot be stored from this desk. Store it "
                                             "as " +
                                             graved(text) + "?",
                                     .caption = "Message",
                                     .buttons = ui::Buttons::YesNo,
                                     .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

bool settle(FormContext& form, ui::TextBox& box) {
    if (!holdsApostrophe(box.text()))
        return true;
    if (canBeSeen(box) && !agrees(form, box, box.text())) {
        box.setRefusal(unstorable);
        form.window.setFocus(box);
        return false;
    }
    box.setText(graved(box.text()));
    return true;
}

bool settleDependents(FormContext& form) {
    ui::Grid& grid = form.fields.employment.mshDependents;
    for (int row = 1; row <= grid.rowCount(); ++row) {
        const std::string name = grid.cell(row, nameColumn);
        if (!holdsApostrophe(name))
            continue;
        if (!agrees(form, grid, name)) {
            grid.setCurrentCell(row, nameColumn);
            form.window.setFocus(grid);
            return false;
        }
        grid.setCell(row, nameColumn, graved(name));
    }
    return true;
}

} // namespace

bool settleApostrophes(FormContext& form) {
    for (ui::TextBox* box : sentBoxes(form))
        if (!settle(form, *box))
            return false;
    return settleDependents(form);
}

void bindApostrophes(FormContext& form) {
    for (ui::TextBox* box : sentBoxes(form))
        takeBackWhen(*box, unstorable, [box] { return !holdsApostrophe(box->text()); });
}

} // namespace opd::registration
