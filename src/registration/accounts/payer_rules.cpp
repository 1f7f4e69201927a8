#include "registration/accounts/payer_rules.h"

#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "registration/accounts/account_rules.h"
#include "registration/record/codes.h"
#include "registration/rules/marks.h"

namespace opd::registration {

namespace {

constexpr const char* notSenior = "The patient is not yet senior citizen.";

void openAccount(PersonalTab& personal) {
    personal.company.code.setEnabled(true);
    personal.company.lookup.setEnabled(true);
}

/// The patient pays alone: there is no account, and with it no type and no letter that would depend on one.
void closeAccount(Fields& fields) {
    fields.personal.company.code.setEnabled(false);
    fields.personal.company.lookup.setEnabled(false);
    fields.additional.frmPatientType.setEnabled(true);
    fields.additional.fraMAB.setEnabled(true);
    fields.additional.letterOfAuthorization.setEnabled(false);
}

void followPlan(PersonalTab& personal) {
    const bool paidByOthers = !personal.planPersonal.selected();
    for (ui::Control* account :
         std::initializer_list<ui::Control*>{&personal.company.code, &personal.company.name, &personal.company.lookup})
        account->setEnabled(paidByOthers);
    personal.lblCardNum.setVisible(paidByOthers);
    personal.txtCardNum.setVisible(paidByOthers);
}

} // namespace

PayerRules::PayerRules(ui::Desktop& desktop, Fields& fields) : m_desktop(desktop), m_fields(fields) {
    PersonalTab& personal = fields.personal;
    bindInsurance();
    bindPatientType();
    bindPayCode();
    bindSenior(personal.chkSenior, personal.txtSeniorID, 59); // the two ages are as the hospitals know them
    bindSenior(personal.chkSeniorCitizen, personal.txtSeniorCitizenID, 60);
    bindPurposes();
    bindProgrammes();
}

void PayerRules::bindInsurance() {
    PersonalTab& personal = m_fields.personal;
    AdditionalTab& additional = m_fields.additional;
    personal.insured.onClick = [&personal, &additional] {
        openAccount(personal);
        choosePatientType(additional, additional.regularPatient);
    };
    personal.notInsured.onClick = [this, &personal] {
        personal.company.code.setText("");
        personal.company.name.setText("PERSONAL");
        closeAccount(m_fields);
    };
    personal.optHospPlan.forEach(
        [&personal](int, ui::OptionButton& plan) { plan.onClick = [&personal] { followPlan(personal); }; });
}

void PayerRules::bindPatientType() {
    AdditionalTab& additional = m_fields.additional;
    for (ui::OptionButton* type : {&additional.regularPatient, &additional.corvanePatient})
        type->onClick = [&additional, type] { choosePatientType(additional, *type); };
    additional.chkMAB.onClick = [&additional] {
        additional.regularPatient.setSelected(false);
        additional.corvanePatient.setSelected(false);
    };
}

void PayerRules::bindPayCode() {
    PersonalTab& personal = m_fields.personal;
    const auto follow = [&personal] {
        if (const int index = personal.cmbPaycode.index();
            index >= 0 && index < static_cast<int>(personal.cmbPaycodeID.items().size()))
            personal.cmbPaycodeID.select(index);
    };
    personal.cmbPaycode.onClick = follow;
    personal.cmbPaycode.onChange = follow;
}

/// A senior citizen's box opens its number for patients who are old enough.
void PayerRules::bindSenior(ui::CheckBox& box, ui::TextBox& number, int leastAge) {
    box.onClick = [this, &box, &number, leastAge] {
        const std::string& age = m_fields.header.txtAge.text();
        if (text::isBlank(age))
            return;
        const bool tooYoung = text::leadingNumber(age) < leastAge;
        box.setRefusal(tooYoung && box.checked() ? notSenior : "");
        if (tooYoung)
            m_desktop.ask(
                {.text = notSenior + std::string{" \r\nCheck the age you entered."}, .icon = ui::Icon::Exclamation});
        else
            number.setEnabled(box.checked());
    };
    m_fields.header.txtAge.onChange.also([this, &box, leastAge] {
        if (text::leadingNumber(m_fields.header.txtAge.text()) >= leastAge)
            box.setRefusal({});
    });
}

void PayerRules::bindPurposes() {
    PersonalTab& personal = m_fields.personal;
    const auto exclude = [](ui::CheckBox& box, ui::CheckBox& other) {
        box.onClick = [&box, &other] {
            if (box.checked())
                other.setChecked(false);
        };
    };
    exclude(personal.purposeRicu, personal.purposeHema);
    exclude(personal.purposeHema, personal.purposeRicu);
}

/// A programme has an expiration date while the patient is in any of them.
void PayerRules::bindProgrammes() {
    PersonalTab& personal = m_fields.personal;
    for (ui::CheckBox* programme :
         {&personal.chkChemo, &personal.chkRTherapy, &personal.chkHemo, &personal.chkforDeposit})
        programme->onClick = [&personal] { personal.dtpExpiration.setEnabled(isInProgramme(personal)); };
}

// The answer about the insurance comes last: it decides about the account whatever the plan is.
void standByPayer(Fields& fields, bool locksPatientType) {
    PersonalTab& personal = fields.personal;
    followPlan(personal);
    if (personal.notInsured.selected()) {
        closeAccount(fields);
        return;
    }
    if (!personal.insured.selected())
        return;
    openAccount(personal);
    if (locksPatientType)
        lockPatientType(personal.company.code.text(), fields.additional);
}

} // namespace opd::registration
