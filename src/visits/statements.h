#pragma once

#include "ado/statement.h"
#include "base/clock/date_time.h"

/// What the list of visits asks the database.
namespace opd::visits::statements {

/// The visits of a day, the newest first, each with the names behind its numbers: AdmDate, IDNum, HospNum, LastName,
/// FirstName, MiddleName, Service, DoctorLastName, DoctorFirstName, UserID, OPDStatus, BillingDate, dcrDate,
/// ConsultationDate.
ado::Statement visitsOf(const DateTime& day);

} // namespace opd::visits::statements
