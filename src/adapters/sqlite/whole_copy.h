#pragma once

#include "adapters/sqlite/engine/database.h"

namespace opd::adapters::sqlite {

/// The path, or with ".2", ".3" ... behind it where there is such a file already: no copy takes another's name.
std::filesystem::path unusedName(const std::string& path);

/// Copies a database as it is at one moment, while others work with it, for whom may read the original. The copy gets
/// its name when it is whole. Throws ado::Error or std::runtime_error.
void copyWhole(const std::filesystem::path& file, const std::filesystem::path& copy, const Clock& clock);

/// The same into a file that is there already, and empty.
void copyInto(const std::filesystem::path& empty, const std::filesystem::path& file, const Clock& clock);

/// The copy of a file beside it, as it is before something is done to it; it goes again unless it is kept.
class CopyBefore {
  public:
    /// `name` is its name, with a number behind it where there is one of that name.
    CopyBefore(const std::filesystem::path& file, const std::string& name, const Clock& clock);
    ~CopyBefore();
    CopyBefore(const CopyBefore&) = delete;
    CopyBefore& operator=(const CopyBefore&) = delete;

    /// Its path, for good.
    std::filesystem::path keep();

  private:
    std::filesystem::path m_copy;
    bool m_kept = false;
};

} // namespace opd::adapters::sqlite
