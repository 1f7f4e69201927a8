#pragma once

#include "registration/fields/fields.h"

#include <string>

namespace opd::tests {

/// Everything without which a registration is refused.
inline void fillRequired(registration::Fields& fields, const std::string& lastName = "DELA CRUZ") {
    fields.header.txtLastName.setText(lastName);
    fields.header.txtFirstName.setText("JUAN");
    fields.header.txtBirthDate.setText("03/07/1980");
    fields.personal.txtZipCode.setText("1000");
    fields.personal.txtReligion.setText("1");
}

} // namespace opd::tests
