#pragma once

#include "ado/error.h"
#include "registration/record/record.h"

#include <string>
#include <vector>

/// What a save that failed has to say: the failure's own message, and then what is true by now. The clerk reads it as
/// it stands.
namespace opd::registration {

/// A failure whose message says already what is stored.
class OutcomeTold : public ado::Error {
  public:
    explicit OutcomeTold(const ado::Error& error) : Error(error) {}
};

/// The commit went without an answer: it may be stored or not.
OutcomeTold perhapsSaved(const std::exception& failure);

/// The commit went without an answer, and the visit is not in the database.
OutcomeTold notThere(const std::exception& failure);

/// The commit went without an answer, and what the form was filled with stands unchanged.
OutcomeTold unchanged(const std::exception& failure);

/// The commit went without an answer, and the visit is in the database.
std::string thereAllTheSame(const Record& record, const std::exception& failure);

/// Before the commit: nothing of this try is stored.
ado::Error nothingSaved(const Record& record, const std::exception& failure);

/// True when a commit that failed so may be stored all the same.
bool leavesDoubt(const ado::Error& failure);

/// Behind the commit: patient and visit are stored, these parts of the registration are not.
ado::Error incomplete(const Record& record, bool updateOnly, const std::exception& failure,
                      const std::vector<std::string>& missingParts);

} // namespace opd::registration
