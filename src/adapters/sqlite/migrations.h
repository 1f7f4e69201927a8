#pragma once

#include "adapters/sqlite/engine/database.h"

namespace opd::adapters::sqlite {

/// The version of the schema that this program works with: that of the last file in database/embedded/migrations.
int schemaVersion();

/// The version that a file is of.
int versionOf(const Database& database);

/// Brings a hospital's file of an older version to this program's. A copy of it as it was stays beside it, named by its
/// version. When this fails or is interrupted, the file is as it was. Throws ado::Error.
void migrate(const std::filesystem::path& file, const Clock& clock);

} // namespace opd::adapters::sqlite
