#include "adapters/sqlite/engine/errors.h"

#include <cerrno>

namespace opd::adapters::sqlite {

ado::Error serverError(const std::string& message, long number, const std::string& sqlState) {
    return ado::Error(message, "Embedded database", number, sqlState);
}

bool isFull(sqlite3* handle) {
    const int system = sqlite3_system_errno(handle);
    const int failed = sqlite3_errcode(handle) & 0xFF;
    const bool isOfFile = failed == SQLITE_IOERR || failed == SQLITE_CANTOPEN;
    return failed == SQLITE_FULL || (isOfFile && (system == ENOSPC || system == EDQUOT));
}

ado::Error errorOf(sqlite3* handle) {
    if (handle != nullptr && isFull(handle))
        return serverError("The disk of the hospital's database is full.", 1105, "HY000");
    const std::string detail = handle == nullptr ? "out of memory" : sqlite3_errmsg(handle);
    const int extended = handle == nullptr ? SQLITE_NOMEM : sqlite3_extended_errcode(handle);
    switch (extended & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return serverError("The hospital's database is in use by another program. Please try again.", 1222, "HYT00");
    case SQLITE_READONLY:
        return serverError("The hospital's database is read-only.", 3906, "25000");
    case SQLITE_IOERR:
        return serverError("The disk of the hospital's database cannot be read or written (" + detail + ").", 823,
                           "HY000");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return serverError("The hospital's database file is damaged or is no database (" + detail + ").", 824, "HY000");
    case SQLITE_CANTOPEN:
        return serverError("The hospital's database file cannot be opened (" + detail + ").", 5120, "08001");
    case SQLITE_CONSTRAINT:
        if (extended == SQLITE_CONSTRAINT_TRIGGER) // the detail is a sentence of this adapter's own
            return serverError(detail, 2627, "23000");
        if (extended == SQLITE_CONSTRAINT_PRIMARYKEY || extended == SQLITE_CONSTRAINT_UNIQUE)
            return serverError("Violation of PRIMARY KEY constraint (" + detail + ").", 2627, "23000");
        return serverError("The statement conflicts with a constraint (" + detail + ").", 547, "23000");
    default:
        return serverError("The hospital's database answers: " + detail, extended, "HY000");
    }
}

} // namespace opd::adapters::sqlite
