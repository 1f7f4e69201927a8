#pragma once

#include "ado/recordset.h"
#include "registration/fields/fields.h"
#include "registration/record/record.h"

#include <string>

namespace opd::registration {

/// A mark as it is sent.
inline const char* bit(bool set) {
    return set ? "1" : "0";
}

std::string purposeCode(const Fields& fields);  ///< "R" RICU, "H" HEMA/ONCO, or empty
std::string perUnitCode(const Fields& fields);  ///< "1" lying in to "4" diabetes clinic, or empty
std::string seniorCode(const Fields& fields);   ///< "1" or "0"
std::string pressureText(const Fields& fields); ///< both values of the blood pressure, "/" between them
std::string admDateTime(const Fields& fields);  ///< "MM/dd/yyyy hh:mm AM"
std::string savedVisit(const Record& record);   ///< the visit's key: the OPD number in upper case, then "B"

/// True when the patient is in any programme, whose check boxes are the truth: then it has an expiration date.
bool isInProgramme(const PersonalTab& personal);

/// Remembers the codes of a loaded visit, whose fields are shown already.
void keepCodes(const Fields& fields, Record& record, const ado::Recordset& visit);

/// Computes the codes that are kept on the form. A greyed cash patient box leaves its code as it was.
void computeKeptCodes(const Fields& fields, Record& record);

/// What the employment tab stands for; 0 where nothing is chosen.
std::string employmentTypeCode(const EmploymentTab& employment);
std::string employmentLocationCode(const EmploymentTab& employment);
std::string philHealthCode(const EmploymentTab& employment);

} // namespace opd::registration
