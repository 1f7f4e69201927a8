#include "registration/rules/key_rules.h"

#include "base/text/text.h"
#include "data/procedures/key_filters.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

void preview(FormContext& form, ui::KeyPress& press) {
    const ui::Control* const focus = form.window.focus();
    if (focus == nullptr || focus->kind() == ui::Kind::Button)
        return;
    if (press.code == ui::key::enter) {
        const EmploymentTab& employment = form.fields.employment;
        if (focus != &employment.mshDependents && focus != &employment.txtEntry)
            form.window.sendTab();
        return;
    }
    if (press.code == U'\'') {
        press.drop();
        return;
    }
    if (focus != &form.fields.personal.txtEmail && focus != &form.fields.employment.txtEmployerEmail)
        press.code = text::upper(press.code);
}

void bindNameFilters(FormContext& form) {
    for (ui::TextBox* name : {&form.fields.header.txtLastName, &form.fields.header.txtMiddleName})
        name->onKeyPress = [](ui::KeyPress& press) { data::FilterNameKey(press.code); };
    form.fields.header.txtFirstName.onKeyPress = [](ui::KeyPress& press) {
        press.code = data::FilterKeyByChars(std::string{data::NameCharacters()} + " .-", press.code);
    };
    form.fields.header.txtAge.onKeyPress = [](ui::KeyPress& press) {
        if (press.code >= ui::key::space && (press.code < U'0' || press.code > U'9'))
            press.drop();
    };
}

/// The preview rests while a consultation type or the remarks have the focus, and wakes when the remarks are left.
void bindPreviewRests(FormContext& form) {
    const auto rest = [&form] { form.window.keyPreview = false; };
    form.fields.consultation.withBill.onGotFocus = rest;
    form.fields.consultation.withoutBill.onGotFocus = rest;
    form.fields.personal.txtRemarks.onGotFocus = rest;
    form.fields.personal.txtRemarks.onLostFocus = [&form] { form.window.keyPreview = true; };
    // The two pickers move on by themselves, whether the preview rests or not.
    for (ui::DatePicker* picker : {&form.fields.header.dtpAdmDate, &form.fields.header.txtAdmTime})
        picker->onKeyPress = [&form](ui::KeyPress& press) {
            if (press.code == ui::key::enter)
                form.window.sendTab();
        };
}

/// Enter behind the last personal particulars leads on to the consultation, whose tab is shown with its first field.
void bindRoadsBetweenTabs(FormContext& form) {
    const auto leadToConsultation = [&form](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            form.window.setFocus(form.fields.consultation.guarantorName);
    };
    form.fields.personal.txtRemarks.onKeyPress = [&form, leadToConsultation](ui::KeyPress& press) {
        if (press.code == ui::key::enter && !form.fields.additional.page.isUsable())
            form.window.setFocus(form.fields.buttons.cmdPrint);
        else
            leadToConsultation(press);
    };
    form.fields.personal.txtNotify.forEach([&](int, ui::TextBox& box) { box.onKeyPress = leadToConsultation; });
}

} // namespace

void bindKeyRules(FormContext& form) {
    form.window.onKeyPress = [&form](ui::KeyPress& press) { preview(form, press); };
    bindNameFilters(form);
    bindPreviewRests(form);
    bindRoadsBetweenTabs(form);
}

} // namespace opd::registration
