#include "registration/rules/account_rules.h"

#include "data/procedures/checks.h"
#include "registration/rules/lookup_request.h"
#include "ui/window.h"

#include <algorithm>

namespace opd::registration {

namespace {

constexpr int companyListing = 3;

bool isOneOf(const std::string& account, std::initializer_list<const char*> accounts) {
    return std::any_of(accounts.begin(), accounts.end(), [&](const char* other) { return account == other; });
}

bool isMember(const std::string& account) {
    return isOneOf(account, {"RW-E", "RW-D", "RW-C", "RW-B", "RW-A"});
}

bool isNationallyInsured(const std::string& account) {
    return isOneOf(account, {"PHIC", "PHILHEAL"});
}

/// Members of the hospital's own plan are of the member type, patients of the national insurance choose.
void applyMembership(Fields& fields) {
    AdditionalTab& additional = fields.additional;
    const std::string& account = fields.personal.accountNumber.text();
    if (isMember(account))
        choosePatientType(additional, additional.corvanePatient);
    else if (isNationallyInsured(account))
        choosePatientType(additional, additional.regularPatient);
    lockPatientType(fields);
}

bool confirmsEmployeesAccount(FormContext& form) {
    return form.session.desktop.ask({.text = "This Account is for employees medicine only. Do you wish to continue?",
                                     .caption = "Message",
                                     .buttons = ui::Buttons::YesNo,
                                     .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

/// The class of the account stands also when the clerk then declines it.
bool acceptClass(FormContext& form, const std::string& companyClass) {
    const bool accepted = companyClass != "S" || confirmsEmployeesAccount(form);
    if (!accepted) {
        form.fields.personal.accountNumber.setText("");
        form.fields.personal.accountName.setText("");
    }
    form.record.CompanyClass = companyClass;
    return accepted;
}

/// What the number in the field decides, also when it was emptied because the clerk declined the account.
void followAccount(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    if (form.session.globals.IsAllowOPDUpdateHMOLOA)
        form.fields.additional.letterOfAuthorization.setEnabled(
            data::CheckCompanyAccount(form.session, personal.accountNumber.text()));
    if (form.session.globals.isAllowCorvane)
        applyMembership(form.fields);
}

bool acceptAccount(FormContext& form, const LookupRequest& request) {
    PersonalTab& personal = form.fields.personal;
    ui::Frame& letter = form.fields.additional.letterOfAuthorization;
    if (request.isNone()) {
        letter.setEnabled(false);
        personal.accountName.setText("");
        return true;
    }
    const com::Object& codeSearch = form.session.globals.gCodeSearch;
    if (!codeSearch.flag("SearchListing", {request.text, std::int32_t{companyListing}})) {
        if (!request.forced) // a list that was closed without a choice says nothing about the field
            form.session.desktop.ask({.text = "Account Code does not exist...", .icon = ui::Icon::Critical});
        return false;
    }
    const com::Object company = codeSearch.object("CompanyRecord");
    personal.accountNumber.setText(company.text("AccountNumber"));
    personal.accountName.setText(company.text("CompanyName"));
    letter.setEnabled(true);
    const bool accepted = acceptClass(form, company.text("Class"));
    if (accepted && personal.notInsured.selected())
        personal.insured.setSelected(true); // an account is never charged to a patient who pays alone
    followAccount(form);
    return accepted;
}

} // namespace

void bindAccount(FormContext& form) {
    ui::TextBox& account = form.fields.personal.accountNumber;
    account.onValidate = [&form, &account](bool& refuse) {
        const LookupRequest request = takeRequest(form.session, account);
        refuse = refusedAfter(form, request, acceptAccount(form, request), account,
                              "This account is unknown or was declined.");
    };
}

void choosePatientType(AdditionalTab& additional, ui::OptionButton& type) {
    type.setSelected(true);
    additional.chkMAB.setChecked(false);
}

void lockPatientType(Fields& fields) {
    const std::string& account = fields.personal.accountNumber.text();
    fields.additional.frmPatientType.setEnabled(isNationallyInsured(account));
    if (isMember(account) || isNationallyInsured(account))
        fields.additional.fraMAB.setEnabled(false);
}

} // namespace opd::registration
