#pragma once

#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

namespace opd::testserver {

/// A statement as it came.
struct Received {
    int connection = 0; ///< counted from 1
    std::string text;
};

/// What the server received; told by several threads.
class StatementLog {
  public:
    /// Also writes a line for each into a file of mode 0600, its connection and a tab before it, "\n" and "\\" for the
    /// end of a line and a backslash in it. Without a file none is written. Throws std::runtime_error.
    explicit StatementLog(const std::filesystem::path& file);
    ~StatementLog();
    StatementLog(const StatementLog&) = delete;
    StatementLog& operator=(const StatementLog&) = delete;

    void add(int connection, const std::string& text);
    std::vector<Received> all() const;
    void clear();

  private:
    mutable std::mutex m_mutex; ///< guards what follows
    int m_file = -1;
    std::vector<Received> m_received;
};

} // namespace opd::testserver
