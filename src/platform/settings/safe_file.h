#pragma once

#include <filesystem>
#include <string>

/// Files that are written whole or not at all. The one place that speaks to the operating system about file modes.
namespace opd::settings {

/// Puts the content in place of the file as one step, so that a reader sees the old or the new file whole; makes the
/// folders above it. The file gets mode 0600. Throws std::runtime_error.
void writePrivately(const std::filesystem::path& file, const std::string& content);

/// The same for a file that is not private: it gets the mode of the user's other new files.
void writeWhole(const std::filesystem::path& file, const std::string& content);

/// Makes the file, or empties it, with mode 0600 whatever it had before. Throws std::runtime_error.
void makePrivate(const std::filesystem::path& file);

/// The user's own folder for settings ($XDG_CONFIG_HOME or ~/.config) and for data ($XDG_DATA_HOME or ~/.local/share).
/// Throws std::runtime_error when the user has no home folder.
std::filesystem::path configFolder();
std::filesystem::path dataFolder();

} // namespace opd::settings
