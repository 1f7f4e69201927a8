#pragma once

#include "ado/statement.h"
#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/client_profile.h"

#include <string>
#include <vector>

/// The statements that write the visit: form values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration {

/// What the patient came for, kept with the patient's history.
ado::Statement updateHistory(const Fields& fields, const Record& record);

/// The visit itself, in the argument list of the client. `accountType` is "P" where the patient pays, "C" a company;
/// `user` is stamped into the visit.
ado::Statement updateVisit(const Fields& fields, const Record& record, const ClientProfile& client,
                           const std::string& accountType, const std::string& user);

/// The codes of the five attending doctors, empty ones included; of a visit whose save is repeated, only those that no
/// try before has counted.
std::vector<std::string> doctorsToCount(const Fields& fields, const Record& record);

/// Counts one consultation of a doctor.
ado::Statement countConsultation(const std::string& doctor);

/// One statement for each of the doctors 3 to 5.
std::vector<ado::Statement> updateAdditionalDoctors(const Fields& fields, const Record& record);

/// The programmes that the patient is in, and until when.
ado::Statement updateTreatments(const Fields& fields, const Record& record);

/// The mark of a walk-in, and the status that goes with it.
ado::Statement updateWalkIn(const Fields& fields, const Record& record);

/// The value of one column of the visit.
ado::Statement updateColumn(const Record& record, std::string_view column, const std::string& value);

/// The letter of authorization of an insurer or HMO.
ado::Statement saveAuthorization(const Fields& fields, const Record& record);

/// The last menstruation period.
ado::Statement saveProfile(const Fields& fields, const Record& record);

/// The log row of an edited visit.
ado::Statement logEdit(const std::string& shownVisit, const std::string& user);

/// Looks whether a visit is stored.
ado::Statement findVisit(const std::string& visit);

/// Gives the patient the next file number.
ado::Statement giveFileNumber(const std::string& hospNum);

} // namespace opd::registration
