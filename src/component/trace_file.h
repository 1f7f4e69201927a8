#pragma once

#include "base/os/open_file.h"

#include <filesystem>
#include <functional>
#include <mutex>
#include <string>

namespace opd {

/// The statements sent by all threads, one a line. A line break within a statement is written as "\n" or "\r".
class TraceFile {
  public:
    /// Begins the file anew, readable by its owner alone; see os::GrowingFile. `tell` is told once, by the first
    /// line that cannot be written. Throws std::runtime_error.
    TraceFile(const std::filesystem::path& file, std::function<void(const std::string& reason)> tell);

    /// Writes the line, or loses it whole: no failure of the trace reaches the statement. The next line is tried anew.
    void write(const std::string& statement) noexcept;

  private:
    std::string append(const std::string& statement);

    std::function<void(const std::string&)> m_tell;
    std::mutex m_mutex; ///< guards what follows
    os::GrowingFile m_file;
    bool m_told = false;
};

} // namespace opd
