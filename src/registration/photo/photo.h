#pragma once

#include "registration/record/form_context.h"

#include <string>

namespace opd::registration {

/// Lets "Capture" take the patient's photograph.
void bindCapture(FormContext& form);

/// Shows the photograph that is on file for the patient, if there is one.
void showStoredPhotograph(FormContext& form);

/// Stores the shown photograph under the number `SaveHospNum` when one was taken. Returns why that failed, for the
/// clerk to read; empty when nothing did.
std::string storePhotograph(const FormContext& form);

} // namespace opd::registration
