#pragma once

#include <CLI/CLI.hpp>

#include <filesystem>
#include <vector>

namespace opd::host {

/// The commands that help names, in its order.
std::vector<const CLI::App*> commandsOf(const CLI::App& app);

/// Writes what a package brings beside the program, made of the same words as its help: "opd-desk.1", a page for each
/// command ("opd-desk-COMMAND.1"), and "opd-desk.bash", with which bash completes commands, options and their values.
/// Throws std::runtime_error when a file cannot be written.
void writeManual(const CLI::App& app, const std::filesystem::path& folder);

} // namespace opd::host
