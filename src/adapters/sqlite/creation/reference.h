#pragma once

#include "adapters/sqlite/engine/database.h"

namespace opd::adapters::sqlite {

/// Fills the reference files from the lists of database/reference, the same in every hospital. Throws ado::Error.
void insertReferenceData(Database& database);

} // namespace opd::adapters::sqlite
