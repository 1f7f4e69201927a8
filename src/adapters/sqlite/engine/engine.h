#pragma once

/// The database engine's functions: the library's own or, in the extension, those of the shell that loads it.
#ifdef OPD_SQLITE_EXTENSION
#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT3
#else
#include <sqlite3.h>
#endif
