#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// In a new registration: true when the patient has no registration and no admission of today; otherwise the clerk was
/// told. In "Edit": loads the visit of `AdmissionNumber` into the form; false when there is none or it may no longer be
/// edited, which the clerk was told. For any other form type true. Throws ado::Error.
bool SearchPatient(FormContext& form);

/// Loads the allergies of `HospNum`, as they are saved with every visit. Throws ado::Error.
void LoadAllergies(FormContext& form);

/// Loads the treatment flags and the expiration date of the visit in `txtOPDNum`. Throws ado::Error.
void GetCancerPatient(FormContext& form);

/// Loads the last menstruation period of the visit in `txtOPDNum`. Throws ado::Error.
void loadOutProfile(FormContext& form);

} // namespace opd::registration
