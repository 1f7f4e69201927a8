#include "registration/rules/account_rules.h"

#include "data/procedures/checks.h"
#include "platform/ui/window.h"
#include "registration/rules/lookup_request.h"

#include <algorithm>

namespace opd::registration {

namespace {

constexpr int companyListing = 3;

bool isOneOf(const std::string& account, std::initializer_list<const char*> accounts) {
    return std::any_of(accounts.begin(), accounts.end(), [&](const char* other) { return account == other; });
}

/// Members of the hospital's own plan are of the member type, patients of the national insurance choose.
void applyMembership(Fields& fields) {
    AdditionalTab& additional = fields.additional;
    const std::string& account = fields.personal.accountNumber.text();
    const bool member = isOneOf(account, {"RW-E", "RW-D", "RW-C", "RW-B", "RW-A"});
    const bool nationalInsurance = isOneOf(account, {"PHIC", "PHILHEAL"});
    additional.frmPatientType.setEnabled(nationalInsurance);
    if (!member && !nationalInsurance)
        return;
    (member ? additional.corvanePatient : additional.regularPatient).setSelected(true);
    additional.fraMAB.setEnabled(false);
}

bool confirmsEmployeesAccount(FormContext& form) {
    return form.session.desktop.ask({.text = "This Account is for employees medicine only. Do you wish to continue?",
                                     .caption = "Message",
                                     .buttons = ui::Buttons::YesNo,
                                     .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

/// The class of the account stands also when the clerk then declines it.
bool acceptClass(FormContext& form, const std::string& companyClass) {
    form.record.CompanyClass = companyClass;
    if (companyClass != "S" || confirmsEmployeesAccount(form))
        return true;
    form.fields.personal.accountNumber.setText("");
    form.fields.personal.accountName.setText("");
    return false;
}

bool acceptAccount(FormContext& form) {
    PersonalTab& personal = form.fields.personal;
    ui::Frame& letter = form.fields.additional.letterOfAuthorization;
    const LookupRequest request = takeRequest(form.session, personal.accountNumber);
    if (request.isNone()) {
        letter.setEnabled(false);
        personal.accountName.setText("");
        return true;
    }
    const com::Object& codeSearch = form.session.globals.gCodeSearch;
    if (!codeSearch.flag("SearchListing", {request.text, std::int32_t{companyListing}})) {
        form.session.desktop.ask({.text = "Account Code does not exist...", .icon = ui::Icon::Critical});
        return false;
    }
    const com::Object company = codeSearch.object("CompanyRecord");
    personal.accountNumber.setText(company.text("AccountNumber"));
    personal.accountName.setText(company.text("CompanyName"));
    letter.setEnabled(true);
    if (!acceptClass(form, company.text("Class")))
        return false;
    if (form.session.globals.IsAllowOPDUpdateHMOLOA)
        letter.setEnabled(data::CheckCompanyAccount(form.session, personal.accountNumber.text()));
    if (form.session.globals.isAllowCorvane)
        applyMembership(form.fields);
    return true;
}

} // namespace

void bindAccount(FormContext& form) {
    ui::TextBox& account = form.fields.personal.accountNumber;
    account.onValidate = [&form, &account](bool& refuse) {
        refuse = refusedUnless(acceptAccount(form), account, "This account is unknown or was declined.");
    };
}

} // namespace opd::registration
