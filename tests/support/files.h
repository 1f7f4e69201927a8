#pragma once

#include "support/temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>

namespace opd::tests {

/// An environment variable that has a value until the end of its scope.
class Variable {
  public:
    Variable(const char* name, const std::string& value) : m_name(name) { ::setenv(name, value.c_str(), 1); }
    ~Variable() { ::unsetenv(m_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* m_name;
};

inline std::string contentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

/// The permission bits of a file, as in 0600.
inline unsigned modeOf(const std::filesystem::path& file) {
    struct stat found {};
    return ::stat(file.c_str(), &found) == 0 ? found.st_mode & 07777U : 0U;
}

} // namespace opd::tests
