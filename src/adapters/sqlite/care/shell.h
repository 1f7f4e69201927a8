#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace opd::adapters::sqlite {

/// The name of the library, a loadable extension, that gives a shell the hospital's collations and functions.
inline constexpr const char* extensionLibrary = "opd-hospital-sql";

enum class ShellAccess { Read, Write };

/// The words of the command line with which the SQLite shell opens the hospital of a folder. Throws std::runtime_error
/// when the folder holds none.
std::vector<std::string> shellCommand(const std::filesystem::path& folder, const std::filesystem::path& extension,
                                      ShellAccess access);

} // namespace opd::adapters::sqlite
