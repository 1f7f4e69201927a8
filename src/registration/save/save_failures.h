#pragma once

#include "ado/error.h"
#include "registration/record/record.h"

#include <string>
#include <vector>

/// What a save that failed has to say: the failure's own message, and then what is true by now. The clerk reads it as
/// it stands.
namespace opd::registration {

/// Before the commit: nothing of this try is stored.
ado::Error nothingSaved(const Record& record, const std::exception& failure);

/// The connection went with the answer of a commit: it may be stored or not.
class PerhapsSaved : public ado::Error {
  public:
    explicit PerhapsSaved(const std::exception& failure);
};

/// True when a commit that failed so may be stored all the same.
bool leavesDoubt(const ado::Error& failure);

/// Behind the commit: patient and visit are stored, these parts of the registration are not.
ado::Error incomplete(const Record& record, bool updateOnly, const std::exception& failure,
                      const std::vector<std::string>& missingParts);

} // namespace opd::registration
