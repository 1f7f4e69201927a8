#pragma once

#include "registration/coded/code_entry.h"
#include "registration/fields/fields.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// The company account: its lookup when the field is left, and what its class and number decide.
class AccountRules {
  public:
    /// `companyClass` is the record's: the class of the chosen account.
    AccountRules(const Session& session, PersonalTab& personal, AdditionalTab& additional, std::string& companyClass,
                 CodeEntry& entry, const search::CodeListing& listing);
    AccountRules(const AccountRules&) = delete;
    AccountRules& operator=(const AccountRules&) = delete;

  private:
    bool acceptAccount(const LookupRequest& request);
    bool acceptClass(const std::string& companyClass);
    bool confirmsEmployeesAccount();
    void followAccount();
    void applyMembership();

    const Session& m_session;
    PersonalTab& m_personal;
    AdditionalTab& m_additional;
    std::string& m_companyClass;
    const search::CodeListing& m_listing;
};

/// Chooses a patient's type, which is never that of a MAB patient.
void choosePatientType(AdditionalTab& additional, ui::OptionButton& type);

/// Opens or locks the choice of the patient's type and the MAB rate by the account number. Nothing is chosen.
void lockPatientType(const std::string& accountNumber, AdditionalTab& additional);

} // namespace opd::registration
