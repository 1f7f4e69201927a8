#pragma once

#include "ado/statement.h"

#include <string>

/// What the form changes by single values: values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration::statements {

ado::Statement newHospNum();   ///< draws a hospital number
ado::Statement newOpdNumber(); ///< draws an OPD number

ado::Statement deleteDependents(const std::string& hospNum);
ado::Statement saveDependent(const std::string& hospNum, const std::string& name, const std::string& birthDate);

ado::Statement revokeVisit(const std::string& visit);
ado::Statement restoreVisit(const std::string& visit);
ado::Statement logRevoke(const std::string& visit, const std::string& user, const std::string& action);

ado::Statement endConsultation(const std::string& visit);

} // namespace opd::registration::statements
