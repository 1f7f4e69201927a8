#pragma once

#include "ado/statement.h"

#include <string>

/// Every statement that the common procedures send.
namespace opd::data::statements {

ado::Statement featureFlags(); ///< the flags of the hospital's settings row
ado::Statement hospitalInfo(); ///< the whole settings row
ado::Statement serverDate();
ado::Statement serverDateOfHospital(); ///< answers nothing where there is no settings row

ado::Statement companyAccount(const std::string& code);   ///< a row where the account is a company's
ado::Statement masterAccount(const std::string& hospNum); ///< a row where the patient has an account for employees
ado::Statement namesakes(const std::string& lastName, const std::string& birthDate);
ado::Statement billingDate(const std::string& opdNumber);
ado::Statement openVisits(const std::string& hospNum); ///< the latest first

} // namespace opd::data::statements
