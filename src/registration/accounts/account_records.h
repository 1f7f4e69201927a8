#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// Fills the two pay code lists with the active pay codes, each at the same place in both. Throws ado::Error.
void LoadPayCode(const Session& session, PersonalTab& personal);

/// The description of a pay code, empty when there is none. Throws ado::Error.
std::string GetPayCode(const Session& session, const std::string& id);

/// The name of an admission type, empty when there is none. Throws ado::Error.
std::string GetAdmissionType(const Session& session, const std::string& id);

/// Sets `CompanyClass` to the class of the company account, when there is such an account. Throws ado::Error.
void LoadAccountClass(const Session& session, Record& record, const std::string& account);

} // namespace opd::registration
