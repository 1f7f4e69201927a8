#pragma once

#include "base/os/open_file.h"

#include <filesystem>

namespace opd::adapters::sqlite {

/// A database file that gets its name when it is whole, held against others that make the same one. What is unfinished
/// at the end of its scope is removed.
class UnfinishedFile {
  public:
    /// Makes it empty, beside the place that it will take; what a killed process left there is taken over. Throws
    /// std::runtime_error, also while another process is making it.
    explicit UnfinishedFile(std::filesystem::path place);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::filesystem::path& path() const { return m_file; }

    /// Gives it its name; nobody has it open any more. Throws std::filesystem::filesystem_error.
    void finish() const;

  private:
    std::filesystem::path m_place;
    std::filesystem::path m_file;
    os::HeldFile m_held;
};

/// What the name of an unfinished file ends with.
inline constexpr const char* unfinishedSuffix = ".unfinished";

} // namespace opd::adapters::sqlite
