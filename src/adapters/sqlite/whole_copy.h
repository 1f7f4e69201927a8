#pragma once

#include "adapters/sqlite/engine/database.h"

namespace opd::adapters::sqlite {

/// The path, or with ".2", ".3" ... behind it where there is such a file already: no copy takes another's name.
std::filesystem::path unusedName(const std::string& path);

/// Copies a database as it is at one moment, while others work with it, for whom may read the original. The copy gets
/// its name when it is whole. Throws ado::Error or std::runtime_error.
void copyWhole(const std::filesystem::path& file, const std::filesystem::path& copy, const Clock& clock);

} // namespace opd::adapters::sqlite
