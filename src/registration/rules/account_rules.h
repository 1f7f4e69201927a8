#pragma once

#include "registration/form_context.h"

namespace opd::registration {

/// Binds the company account: its lookup when the field is left, and what its class and number decide.
void bindAccount(FormContext& form);

/// Chooses a patient's type, which is never that of a MAB patient.
void choosePatientType(AdditionalTab& additional, ui::OptionButton& type);

/// Opens or locks the choice of the patient's type and the MAB rate by the account number. Nothing is chosen.
void lockPatientType(Fields& fields);

} // namespace opd::registration
