#pragma once

#include <filesystem>

namespace opd::os {

/// The file behind a library's path, with every link resolved, when nobody but the user and the administrator can
/// change it: it and the folders that lead to it belong to one of them and are writable for no others (for the user's
/// own group when nobody else is in it). A folder above the library's own may be one in which each changes only what is
/// his, as /tmp is. Throws LibraryError, naming what others can change, and when the file is missing.
std::filesystem::path trustedLibrary(const std::filesystem::path& file);

} // namespace opd::os
