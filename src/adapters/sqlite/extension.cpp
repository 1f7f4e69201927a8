// The hospital's collations and functions for any SQLite shell: ".load libopd-hospital-sql".
#include "adapters/sqlite/engine/functions.h"
#include "base/os/system_clock.h"

SQLITE_EXTENSION_INIT1

/// The entry point that a shell finds by the name of the file.
extern "C" __attribute__((visibility("default"))) int sqlite3_opdhospitalsql_init(sqlite3* handle, char** /*error*/,
                                                                                  const sqlite3_api_routines* engine) {
    SQLITE_EXTENSION_INIT2(engine);
    opd::adapters::sqlite::registerFunctions(handle, opd::os::machineClock());
    return SQLITE_OK;
}
