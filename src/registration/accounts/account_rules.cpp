#include "registration/accounts/account_rules.h"

#include "data/procedures/checks.h"

#include <algorithm>

namespace opd::registration {

namespace {

bool isOneOf(const std::string& account, std::initializer_list<const char*> accounts) {
    return std::any_of(accounts.begin(), accounts.end(), [&](const char* other) { return account == other; });
}

bool isMember(const std::string& account) {
    return isOneOf(account, {"RW-E", "RW-D", "RW-C", "RW-B", "RW-A"});
}

bool isNationallyInsured(const std::string& account) {
    return isOneOf(account, {"PHIC", "PHILHEAL"});
}

} // namespace

AccountRules::AccountRules(const Session& session, PersonalTab& personal, AdditionalTab& additional,
                           std::string& companyClass, CodeEntry& entry, const search::CodeListing& listing)
    : m_session(session), m_personal(personal), m_additional(additional), m_companyClass(companyClass),
      m_listing(listing) {
    entry.bind(personal.company, "This account is unknown or was declined.",
               [this](const LookupRequest& request) { return acceptAccount(request); });
}

bool AccountRules::acceptAccount(const LookupRequest& request) {
    ui::Frame& letter = m_additional.letterOfAuthorization;
    if (request.isNone()) {
        letter.setEnabled(false);
        m_personal.company.name.setText("");
        return true;
    }
    const std::optional<search::Company> company = m_listing.company(request.wish());
    if (!company) {
        if (!request.forced) // a list that was closed without a choice says nothing about the field
            m_session.desktop.ask({.text = "Account Code does not exist...", .icon = ui::Icon::Critical});
        return false;
    }
    m_personal.company.show(company->accountNumber, company->name);
    letter.setEnabled(true);
    const bool accepted = acceptClass(company->companyClass);
    if (accepted && m_personal.notInsured.selected())
        m_personal.insured.setSelected(true); // an account is never charged to a patient who pays alone
    followAccount();
    return accepted;
}

/// The class of the account stands also when the clerk then declines it.
bool AccountRules::acceptClass(const std::string& companyClass) {
    const bool accepted = companyClass != "S" || confirmsEmployeesAccount();
    if (!accepted)
        m_personal.company.show("", "");
    m_companyClass = companyClass;
    return accepted;
}

bool AccountRules::confirmsEmployeesAccount() {
    return m_session.desktop.ask({.text = "This Account is for employees medicine only. Do you wish to continue?",
                                  .caption = "Message",
                                  .buttons = ui::Buttons::YesNo,
                                  .icon = ui::Icon::Question}) == ui::Answer::Yes;
}

/// What the number in the field decides, also when it was emptied because the clerk declined the account.
void AccountRules::followAccount() {
    if (m_session.globals.IsAllowOPDUpdateHMOLOA)
        m_additional.letterOfAuthorization.setEnabled(
            data::CheckCompanyAccount(m_session, m_personal.company.code.text()));
    if (m_session.globals.isAllowCorvane)
        applyMembership();
}

/// Members of the hospital's own plan are of the member type, patients of the national insurance choose.
void AccountRules::applyMembership() {
    const std::string& account = m_personal.company.code.text();
    if (isMember(account))
        choosePatientType(m_additional, m_additional.corvanePatient);
    else if (isNationallyInsured(account))
        choosePatientType(m_additional, m_additional.regularPatient);
    lockPatientType(account, m_additional);
}

void choosePatientType(AdditionalTab& additional, ui::OptionButton& type) {
    type.setSelected(true);
    additional.chkMAB.setChecked(false);
}

void lockPatientType(const std::string& accountNumber, AdditionalTab& additional) {
    additional.frmPatientType.setEnabled(isNationallyInsured(accountNumber));
    if (isMember(accountNumber) || isNationallyInsured(accountNumber))
        additional.fraMAB.setEnabled(false);
}

} // namespace opd::registration
