#include "ui/coded_field.h"

#include "ui/window.h"

namespace opd::ui {

CodedField::CodedField(TextBox& codeBox, Button& lookupButton, TextBox& nameBox)
    : code(codeBox), lookup(lookupButton), name(nameBox) {
    for (Control* part : {static_cast<Control*>(&code), static_cast<Control*>(&lookup), static_cast<Control*>(&name)})
        part->coded = this;
    code.hint = "F4 lists the codes.";
    lookup.tabStop = false; // it is pressed from the code's box
    name.showOnly();
}

void CodedField::show(const std::string& foundCode, const std::string& foundName) {
    code.setText(foundCode);
    name.setText(foundName);
}

void CodedField::refuse(std::string_view reason) {
    mark(reason);
    code.window().setFocus(code);
}

void CodedField::mark(std::string_view reason) {
    m_reason = reason;
    code.setRefusal(reason);
}

void CodedField::accept() {
    if (code.refusal() == m_reason)
        code.setRefusal({});
}

bool isLookup(const Control& control) {
    return control.coded != nullptr && &control == &control.coded->lookup;
}

} // namespace opd::ui
