#pragma once

#include "ado/statement.h"
#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/client_profile.h"

/// The statements that write the patient: form values in, text out. Each throws ado::Error when a value holds a quote.
namespace opd::registration {

/// The patient master, in the argument list of the client. Its barangay is the code where barangays are coded.
ado::Statement updateMaster(const Fields& fields, const Record& record, const ClientProfile& client,
                            bool codesBarangays);

/// The codes of the five allergies.
ado::Statement saveAllergies(const Fields& fields, const Record& record);

/// Contacts, spouse, parents, employment and social insurance. Quotes in most of its values become grave accents.
ado::Statement updateExtendedMaster(const Fields& fields, const Record& record);

/// The conditions that are ticked, and what else is written beside them.
ado::Statement updateMedicalHistory(const Fields& fields, const Record& record);

} // namespace opd::registration
