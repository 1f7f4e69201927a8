#pragma once

#include "registration/form_context.h"

#include <vector>

namespace opd::registration {

/// True when the form may be saved; the codes that the save writes are then in the record. Otherwise the clerk was told
/// the first mistake, which is marked at its field, and stands at it.
bool ValidateData(FormContext& form);

/// True when the field is marked by the check before a save and what it asks for is still missing.
bool isStandingFault(const FormContext& form, const ui::Control& field);

/// The fields that the check would refuse as the form stands.
std::vector<const ui::Control*> missingFields(const FormContext& form);

/// Binds the taking back of the check's marks: at the change that puts the field right. It adds to the handlers that
/// stand when it is called.
void bindMarks(FormContext& form);

} // namespace opd::registration
