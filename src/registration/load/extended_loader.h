#pragma once

#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

namespace opd::registration {

/// Loads contacts, spouse, parents, employment and social insurance of `HospNum`. Throws ado::Error.
void LoadExtendedMaster(const Session& session, Fields& fields, Record& record);

/// Loads a patient's medical history; without a stored one nothing changes. Throws ado::Error.
void LoadMedicalHistory(const Session& session, HistoryTab& tab, LoadedRows& rows, const std::string& hospNum);

} // namespace opd::registration
