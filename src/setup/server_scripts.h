#pragma once

#include <cstddef>

namespace opd::setup {

/// A script of database/sqlserver, which is compiled into the program.
struct ServerScript {
    const char* name;
    const char* text;
};

extern const ServerScript serverScripts[]; ///< in the order in which they are sent
extern const std::size_t serverScriptCount;

} // namespace opd::setup
