#include "registration/rules/key_rules.h"

#include "base/text/text.h"
#include "data/procedures/key_filters.h"

namespace opd::registration {

KeyRules::KeyRules(ui::Window& window, Fields& fields, bool quick) : m_window(window), m_fields(fields) {
    window.onKeyPress = [this](ui::KeyPress& press) { preview(press); };
    bindNameFilters();
    bindPreviewRests();
    bindRoadsBetweenTabs();
    if (quick)
        bindQuickEntry();
}

void KeyRules::preview(ui::KeyPress& press) {
    const ui::Control* const focus = m_window.focus();
    if (focus == nullptr || focus->kind() == ui::Kind::Button)
        return;
    if (press.code == ui::key::enter) {
        const EmploymentTab& employment = m_fields.employment;
        if (focus != &employment.mshDependents && focus != &employment.txtEntry)
            m_window.sendTab();
        return;
    }
    if (press.code == U'\'') {
        press.drop();
        return;
    }
    if (focus != &m_fields.personal.txtEmail && focus != &m_fields.employment.txtEmployerEmail)
        press.code = text::upper(press.code);
}

void KeyRules::bindNameFilters() {
    for (ui::TextBox* name : {&m_fields.header.txtLastName, &m_fields.header.txtMiddleName})
        name->onKeyPress = [](ui::KeyPress& press) { data::FilterNameKey(press.code); };
    m_fields.header.txtFirstName.onKeyPress = [](ui::KeyPress& press) {
        press.code = data::FilterKeyByChars(std::string{data::NameCharacters()} + " .-", press.code);
    };
    m_fields.header.txtAge.onKeyPress = [](ui::KeyPress& press) {
        if (press.code >= ui::key::space && (press.code < U'0' || press.code > U'9'))
            press.drop();
    };
}

/// The preview rests while a consultation type or the remarks have the focus, and wakes when the remarks are left.
void KeyRules::bindPreviewRests() {
    const auto rest = [this] { m_window.keyPreview = false; };
    m_fields.consultation.withBill.onGotFocus = rest;
    m_fields.consultation.withoutBill.onGotFocus = rest;
    m_fields.personal.txtRemarks.onGotFocus = rest;
    m_fields.personal.txtRemarks.onLostFocus = [this] { m_window.keyPreview = true; };
    // The two pickers move on by themselves, whether the preview rests or not.
    for (ui::DatePicker* picker : {&m_fields.header.dtpAdmDate, &m_fields.header.txtAdmTime})
        picker->onKeyPress = [this](ui::KeyPress& press) {
            if (press.code == ui::key::enter)
                m_window.sendTab();
        };
}

/// Enter behind the last personal particulars leads on to the consultation, whose tab is shown with its first field.
void KeyRules::bindRoadsBetweenTabs() {
    const auto leadToConsultation = [this](ui::KeyPress& press) {
        if (press.code == ui::key::enter)
            m_window.setFocus(m_fields.consultation.guarantorName);
    };
    m_fields.personal.txtRemarks.onKeyPress = [this, leadToConsultation](ui::KeyPress& press) {
        if (press.code == ui::key::enter && !m_fields.additional.page.isUsable())
            m_window.setFocus(m_fields.buttons.cmdPrint);
        else
            leadToConsultation(press);
    };
    m_fields.personal.txtNotify.forEach([&](int, ui::TextBox& box) { box.onKeyPress = leadToConsultation; });
}

void KeyRules::bindQuickEntry() {
    ConsultationTab& consultation = m_fields.consultation;
    for (ui::Control* field : std::initializer_list<ui::Control*>{
             &m_fields.header.txtBirthDate, &m_fields.history.txtLMP, &consultation.systolic, &consultation.diastolic})
        field->entersWhenFull = true;
}

} // namespace opd::registration
