#pragma once

#include "ado/recordset.h"
#include "registration/fields/fields.h"
#include "session/session.h"

#include <string>

namespace opd::registration {

/// Whom the records that resemble the form's patient are about: number, name, birth date and address, a line each. Asks
/// the database once. Where that fails the clerk must be asked all the same: it is then said in the place of the lines.
std::string whoIsMeant(const Session& session, const HeaderFields& header, const ado::Recordset& similar);

} // namespace opd::registration
