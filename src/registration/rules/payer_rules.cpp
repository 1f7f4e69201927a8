#include "registration/rules/payer_rules.h"

#include "base/text/text.h"
#include "data/leading_number.h"
#include "registration/rules/account_rules.h"
#include "registration/rules/marks.h"
#include "ui/window.h"

namespace opd::registration {

namespace {

void openAccount(PersonalTab& personal) {
    personal.accountNumber.setEnabled(true);
    personal.searchAccount.setEnabled(true);
}

/// The patient pays alone: there is no account, and with it no type and no letter that would depend on one.
void closeAccount(Fields& fields) {
    fields.personal.accountNumber.setEnabled(false);
    fields.personal.searchAccount.setEnabled(false);
    fields.additional.frmPatientType.setEnabled(true);
    fields.additional.fraMAB.setEnabled(true);
    fields.additional.letterOfAuthorization.setEnabled(false);
}

void followPlan(PersonalTab& personal) {
    const bool paidByOthers = !personal.planPersonal.selected();
    for (ui::Control* account :
         std::initializer_list<ui::Control*>{&personal.accountNumber, &personal.accountName, &personal.searchAccount})
        account->setEnabled(paidByOthers);
    personal.lblCardNum.setVisible(paidByOthers);
    personal.txtCardNum.setVisible(paidByOthers);
}

void bindInsurance(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    AdditionalTab& additional = form.fields.additional;
    personal.insured.onClick = [&] {
        openAccount(personal);
        choosePatientType(additional, additional.regularPatient);
    };
    personal.notInsured.onClick = [&] {
        personal.accountNumber.setText("");
        personal.accountName.setText("PERSONAL");
        closeAccount(form.fields);
    };
    personal.optHospPlan.forEach(
        [&](int, ui::OptionButton& plan) { plan.onClick = [&personal] { followPlan(personal); }; });
}

void bindPatientType(FormContext& form) {
    AdditionalTab& additional = form.fields.additional;
    for (ui::OptionButton* type : {&additional.regularPatient, &additional.corvanePatient})
        type->onClick = [&additional, type] { choosePatientType(additional, *type); };
    additional.chkMAB.onClick = [&additional] {
        additional.regularPatient.setSelected(false);
        additional.corvanePatient.setSelected(false);
    };
}

void bindPayCode(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    const auto follow = [&personal] {
        if (const int index = personal.cmbPaycode.index();
            index >= 0 && index < static_cast<int>(personal.cmbPaycodeID.items().size()))
            personal.cmbPaycodeID.select(index);
    };
    personal.cmbPaycode.onClick = follow;
    personal.cmbPaycode.onChange = follow;
}

/// A senior citizen's box opens its number for patients who are old enough.
void bindSenior(FormContext& form, ui::CheckBox& box, ui::TextBox& number, int leastAge) {
    box.onClick = [&form, &box, &number, leastAge] {
        const std::string& age = form.fields.header.txtAge.text();
        if (text::isBlank(age))
            return;
        const bool tooYoung = data::leadingNumber(age) < leastAge;
        box.setRefusal(tooYoung && box.checked() ? "The patient is not yet senior citizen." : "");
        if (tooYoung)
            form.session.desktop.ask({.text = "The patient is not yet senior citizen. \r\nCheck the age you entered.",
                                      .icon = ui::Icon::Exclamation});
        else
            number.setEnabled(box.checked());
    };
    alsoOn(form.fields.header.txtAge.onChange, [&form, &box, leastAge] {
        if (data::leadingNumber(form.fields.header.txtAge.text()) >= leastAge)
            box.setRefusal({});
    });
}

void bindPurposes(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
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
void bindProgrammes(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    const auto inAny = [&form] {
        const Record& record = form.record;
        return record.ChemoFlag || record.RadioFlag || record.HemoFlag || record.DepositFlag;
    };
    const std::pair<ui::CheckBox*, bool*> programmes[] = {{&personal.chkChemo, &form.record.ChemoFlag},
                                                          {&personal.chkRTherapy, &form.record.RadioFlag},
                                                          {&personal.chkHemo, &form.record.HemoFlag},
                                                          {&personal.chkforDeposit, &form.record.DepositFlag}};
    for (const auto& [box, flag] : programmes)
        box->onClick = [&personal, inAny, programme = box, memberOf = flag] {
            *memberOf = programme->checked();
            personal.dtpExpiration.setEnabled(inAny());
        };
}

} // namespace

// The answer about the insurance comes last: it decides about the account whatever the plan is.
void standByPayer(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    followPlan(personal);
    if (personal.notInsured.selected()) {
        closeAccount(form.fields);
        return;
    }
    if (!personal.insured.selected())
        return;
    openAccount(personal);
    if (form.session.globals.isAllowCorvane)
        lockPatientType(form.fields);
}

void bindPayerRules(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    bindInsurance(form);
    bindPatientType(form);
    bindPayCode(form);
    bindSenior(form, personal.chkSenior, personal.txtSeniorID, 59);
    bindSenior(form, personal.chkSeniorCitizen, personal.txtSeniorCitizenID, 60);
    bindPurposes(form);
    bindProgrammes(form);
    bindAccount(form);
}

} // namespace opd::registration
