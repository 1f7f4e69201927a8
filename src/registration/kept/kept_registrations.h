#pragma once

#include "registration/record/form_context.h"

#include <string>

/// What was typed into a registration for which no number could be drawn. It is kept in memory alone, one for each
/// patient and one for a new patient, in the session of the thread.
namespace opd::registration {

/// Keeps what the form holds for its next opening. `patient` is the hospital number that the form was opened for, or
/// "NEW".
void keepRegistration(const FormContext& form, const std::string& patient);

/// Saved or given up: nothing is kept for the patient any more.
void forgetKeptRegistration(Session& session, const std::string& patient);

/// Offers what is kept for the patient of a form that was opened for a new visit; where the clerk agrees the form holds
/// it from now on, without any rule being asked, and it stays kept: true then. A clerk who declines gives it up.
bool offerKeptRegistration(FormContext& form, const std::string& patient);

} // namespace opd::registration
