#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace opd {

/// The statements sent, one a line. A line break within a statement is written as "\n" or "\r".
class TraceFile {
  public:
    /// Begins the file anew, readable by its owner alone. Throws std::runtime_error.
    explicit TraceFile(const std::filesystem::path& file);

    /// Throws std::runtime_error when the line cannot be written.
    void write(const std::string& statement);

  private:
    std::filesystem::path m_file;
    std::ofstream m_out;
};

} // namespace opd
