#pragma once

#include "registration/record/form_context.h"

namespace opd::registration {

/// What may forbid a save of a checked form: a namesake of the same age whom the clerk does not want twice, a patient
/// who is confined, a missing patient class, an apostrophe that the clerk does not want changed. False when the clerk
/// or a rule refused: the clerk was told, and the form is closed where it has no more use. Throws ado::Error, also when
/// the form shows other numbers than it was opened for.
bool maySave(FormContext& form, bool updateOnly);

/// The hospital number that the form shows, or "NEW".
std::string shownHospNum(const FormContext& form);

} // namespace opd::registration
