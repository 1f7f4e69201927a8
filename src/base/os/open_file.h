#pragma once

#include <filesystem>
#include <string>

namespace opd::os {

/// A new, empty file (mode 0660 less what the umask takes away) that nobody else may replace before the end of the
/// scope. One that was left by a process that is gone is taken over empty; one that has got another name is left alone.
class HeldFile {
  public:
    /// Throws std::runtime_error, also when another process holds the file.
    explicit HeldFile(const std::filesystem::path& file);
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    /// Gives it the content of another file. Throws std::runtime_error, which says which of the two is at fault.
    void fill(const std::filesystem::path& from) const;

  private:
    std::filesystem::path m_file;
    int m_descriptor;
};

/// A private file (mode 0600) that grows piece by piece.
class GrowingFile {
  public:
    /// Makes the file, or empties it. Follows no link and opens nothing but a plain file. Throws std::runtime_error.
    explicit GrowingFile(std::filesystem::path file);
    ~GrowingFile();
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;

    /// Adds the content, or throws std::runtime_error and leaves the file as it was. The next one is tried anew.
    void append(const std::string& content);

  private:
    std::filesystem::path m_file;
    int m_descriptor;
};

} // namespace opd::os
