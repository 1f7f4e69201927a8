#pragma once

#include "ado/statement.h"
#include "registration/fields/fields.h"
#include "registration/record/record.h"
#include "session/session.h"

#include <span>
#include <string>

/// What a hospital may keep of a visit beside the list of its procedure: a column each, stored by an update of its own.
/// A line in the list is shown when a visit is loaded and stored when one is saved.
namespace opd::registration {

struct VisitMark {
    const char* name;         ///< for the clerk, when it could not be stored
    bool FeatureFlags::*flag; ///< null for what every hospital keeps
    std::string_view column;
    std::string (*stored)(const Fields& fields);
    void (*show)(const Session& session, Fields& fields, const ado::Value& stored);

    bool isKept(const FeatureFlags& flags) const { return flag == nullptr || flags.*flag; }
};

/// The marks that are stored before the letter of authorization, and those behind it.
std::span<const VisitMark> marksBeforeAuthorization();
std::span<const VisitMark> marksBehindAuthorization();

/// Shows those of the current row's marks that the hospital keeps. Throws ado::Error for a missing column.
void showMarks(const Session& session, Fields& fields, const ado::Recordset& visit);

} // namespace opd::registration
