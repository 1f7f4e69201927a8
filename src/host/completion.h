#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace opd::host {

/// A script for bash that completes the program's commands, their options, and the values of these: files for FILE,
/// folders for FOLDER, and the words of a choice.
std::string bashCompletionOf(const CLI::App& app);

} // namespace opd::host
