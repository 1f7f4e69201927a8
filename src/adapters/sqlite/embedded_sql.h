#pragma once

#include <cstddef>

namespace opd::adapters::sqlite {

/// An SQL file that is compiled into the library.
struct EmbeddedSql {
    const char* name; ///< the file's name without its folder
    const char* text;
};

extern const EmbeddedSql embeddedProcedures[];
extern const std::size_t embeddedProcedureCount;
extern const char* const embeddedSchema;

} // namespace opd::adapters::sqlite
