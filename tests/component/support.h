#pragma once

#include "support/files.h"

#include <filesystem>
#include <string>
#include <vector>

namespace opd::tests {

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
std::filesystem::path otherLibrary(); ///< one that holds no component

/// Lets a library register its classes.
void registerClassesOf(const std::filesystem::path& library);

} // namespace opd::tests
