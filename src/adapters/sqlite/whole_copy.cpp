#include "adapters/sqlite/whole_copy.h"

#include "adapters/sqlite/engine/errors.h"
#include "adapters/sqlite/unfinished_file.h"

namespace opd::adapters::sqlite {

namespace {

/// Another disk may be full than that of the hospital.
[[noreturn]] void fail(const Database& to, const std::filesystem::path& copy) {
    if (isFull(to.handle()))
        throw std::runtime_error("Cannot write \"" + copy.string() +
                                 "\": " + std::make_error_code(std::errc::no_space_on_device).message() + ".");
    to.fail();
}

void copyAll(const Database& from, const Database& to, const std::filesystem::path& copy) {
    sqlite3_backup* const copying = sqlite3_backup_init(to.handle(), "main", from.handle(), "main");
    if (copying == nullptr)
        fail(to, copy);
    const int step = sqlite3_backup_step(copying, -1);
    if (sqlite3_backup_finish(copying) != SQLITE_OK)
        fail(to, copy);
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

void copyInto(const std::filesystem::path& empty, const std::filesystem::path& file, const Clock& clock) {
    copyAll(Database(file, Database::Mode::Existing, clock), Database(empty, Database::Mode::Create, clock), empty);
}

void copyWhole(const std::filesystem::path& file, const std::filesystem::path& copy, const Clock& clock) {
    const UnfinishedFile unfinished(copy);
    std::filesystem::permissions(unfinished.path(), std::filesystem::status(file).permissions());
    copyInto(unfinished.path(), file, clock);
    unfinished.finish();
}

CopyBefore::CopyBefore(const std::filesystem::path& file, const std::string& name, const Clock& clock)
    : m_copy(unusedName(name)) {
    copyWhole(file, m_copy, clock);
}

CopyBefore::~CopyBefore() {
    std::error_code ignored;
    if (!m_kept)
        std::filesystem::remove(m_copy, ignored);
}

std::filesystem::path CopyBefore::keep() {
    m_kept = true;
    return m_copy;
}

} // namespace opd::adapters::sqlite
