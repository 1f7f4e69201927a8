#include "adapters/sqlite/whole_copy.h"

#include "adapters/sqlite/engine/errors.h"
#include "adapters/sqlite/unfinished_file.h"

namespace opd::adapters::sqlite {

namespace {

void copyAll(const Database& from, const Database& to) {
    sqlite3_backup* const copying = sqlite3_backup_init(to.handle(), "main", from.handle(), "main");
    if (copying == nullptr)
        to.fail();
    const int step = sqlite3_backup_step(copying, -1);
    if (sqlite3_backup_finish(copying) != SQLITE_OK)
        to.fail();
    if (step != SQLITE_DONE) // a lock that others hold ends the step, and is no failure of the copying as a whole
        throw serverError(std::string{"Nothing was copied: "} + sqlite3_errstr(step) + ".", 1222, "HYT00");
}

} // namespace

std::filesystem::path unusedName(const std::string& path) {
    std::filesystem::path unused = path;
    for (int number = 2; std::filesystem::exists(unused); ++number)
        unused = path + "." + std::to_string(number);
    return unused;
}

void copyWhole(const std::filesystem::path& file, const std::filesystem::path& copy, const Clock& clock) {
    const UnfinishedFile unfinished(copy);
    std::filesystem::permissions(unfinished.path(), std::filesystem::status(file).permissions());
    copyAll(Database(file, Database::Mode::Existing, clock),
            Database(unfinished.path(), Database::Mode::Create, clock));
    unfinished.finish();
}

} // namespace opd::adapters::sqlite
