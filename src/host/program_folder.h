#pragma once

#include "base/os/library.h"

namespace opd::host {

/// The folder of this program, in which its libraries and modules lie as well.
inline std::filesystem::path programFolder() {
    return os::libraryOf(reinterpret_cast<const void*>(&programFolder)).parent_path();
}

} // namespace opd::host
