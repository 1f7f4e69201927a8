#pragma once

#include "ado/statement.h"

#include <string>

/// What the form asks the database: values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration::statements {

ado::Statement payCodes(); ///< those in use
ado::Statement payCode(const std::string& id);
ado::Statement admissionType(const std::string& id);
ado::Statement companyAccount(const std::string& account);
ado::Statement barangay(const std::string& code);
ado::Statement chiefComplaint(const std::string& code);
ado::Statement age(const std::string& birthDate);

ado::Statement master(const std::string& hospNum);
ado::Statement extendedMaster(const std::string& hospNum);
ado::Statement admissionMaster(const std::string& hospNum); ///< the same record, asked for again
ado::Statement medicalHistory(const std::string& hospNum);
ado::Statement allergies(const std::string& hospNum);
ado::Statement dependents(const std::string& hospNum);

ado::Statement registrationOf(const std::string& hospNum, const std::string& day);
ado::Statement visit(const std::string& opdNumber);
ado::Statement programmes(const std::string& opdNumber);
ado::Statement outProfile(const std::string& opdNumber);
ado::Statement authorization(const std::string& opdNumber);
ado::Statement hospitalBill(const std::string& opdNumber);

/// Patients on file with the same last name, first name and age.
ado::Statement similarRecords(const std::string& lastName, const std::string& firstName, long age);

/// Number, name, birth date and address of the patients on file who are called so.
ado::Statement namesakes(const std::string& lastName, const std::string& firstName);
ado::Statement confinement(const std::string& hospNum);

} // namespace opd::registration::statements
