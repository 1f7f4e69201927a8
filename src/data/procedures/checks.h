#pragma once

#include "session/session.h"

#include <string>

/// Questions that the windows put to the database. Each throws ado::Error when the database fails.
namespace opd::data {

bool CheckCompanyAccount(const Session& session, const std::string& code);

/// True when the patient's account is the one for employees' medicines.
bool CheckPatientMasterAccount(const Session& session, const std::string& hospNum);

/// True when a patient with this birth date is on file whose last name begins with this one.
bool FindHospNumByNameBirthDate(const Session& session, const std::string& lastName, const std::string& birthDate);

bool IsVisitBilled(const Session& session, const std::string& opdNumber);

/// The OPD number of the latest visit of the selected patient that is neither billed nor discharged nor revoked; empty
/// when there is none.
std::string GetOpenVisit(const Session& session);

} // namespace opd::data
