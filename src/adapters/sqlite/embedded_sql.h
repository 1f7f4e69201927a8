#pragma once

#include <cstddef>

namespace opd::adapters::sqlite {

/// A file that is compiled into the library.
struct EmbeddedText {
    const char* name;
    const char* text;
};

extern const EmbeddedText embeddedProcedures[]; ///< by the file's name without its folder
extern const std::size_t embeddedProcedureCount;
extern const EmbeddedText embeddedMigrations[]; ///< by the file's name, which begins with the version
extern const std::size_t embeddedMigrationCount;
extern const EmbeddedText embeddedReference[]; ///< by the name of the table of Build_File that the list fills
extern const std::size_t embeddedReferenceCount;
extern const char* const embeddedSchema;

} // namespace opd::adapters::sqlite
