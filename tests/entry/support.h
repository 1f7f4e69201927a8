#pragma once

#include "support/temporary_folder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace opd::tests {

/// An environment variable that has a value until the end of its scope.
class Variable {
  public:
    Variable(const char* name, const std::string& value);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* m_name;
};

std::string contentOf(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, const std::string& content);

/// The permission bits of a file, as in 0600.
unsigned modeOf(const std::filesystem::path& file);

struct Outcome {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs the desk's program to its end.
Outcome runDesk(const std::vector<std::string>& arguments, const std::string& input = {});

/// The libraries as they were built.
std::filesystem::path componentLibrary();
std::filesystem::path codeSearchLibrary();
std::filesystem::path platformLibrary();

} // namespace opd::tests
