#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// In a new registration: true when the patient has no registration and no admission of today; otherwise the clerk was
/// told. In "Edit": loads the visit of `AdmissionNumber` into the form; false when there is none or it may no longer be
/// edited, which the clerk was told. For any other form type true. Throws ado::Error.
bool SearchPatient(const Session& session, Fields& fields, Record& record);

/// What tells the clerk that the patient has a registration or an admission of today; empty without one. Throws
/// ado::Error.
std::string registeredToday(const Session& session, const std::string& hospNum);

/// Loads the allergies of `HospNum`, as they are saved with every visit. Throws ado::Error.
void LoadAllergies(const Session& session, HistoryTab& history, Record& record);

/// Loads the programmes and the expiration date of a visit; a new one has none that another desk could change. Throws
/// ado::Error.
void GetCancerPatient(const Session& session, PersonalTab& personal, Record& record, const std::string& opdNumber);

/// Loads the last menstruation period of a visit. Throws ado::Error.
void loadOutProfile(const Session& session, HistoryTab& history, LoadedRows& rows, const std::string& opdNumber);

} // namespace opd::registration
