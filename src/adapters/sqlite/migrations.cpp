#include "adapters/sqlite/migrations.h"

#include "adapters/sqlite/embedded_sql.h"
#include "adapters/sqlite/engine/errors.h"
#include "adapters/sqlite/whole_copy.h"

#include <cstdlib>
#include <span>

namespace opd::adapters::sqlite {

namespace {

/// How long a desk waits for another one that is at it already.
constexpr std::chrono::minutes patience{1};

std::span<const EmbeddedText> migrations() {
    return {embeddedMigrations, embeddedMigrationCount};
}

/// The version that a migration leads to: its name begins with it.
int versionOf(const EmbeddedText& migration) {
    return std::atoi(migration.name);
}

/// The copy of a file beside it, whole or not there at all; it goes again unless it is kept.
class Copy {
  public:
    Copy(const std::filesystem::path& file, int version, const Clock& clock)
        : m_copy(unusedName(file.string() + ".version-" + std::to_string(version))) {
        copyWhole(file, m_copy, clock);
    }
    ~Copy() {
        std::error_code ignored;
        if (!m_kept)
            std::filesystem::remove(m_copy, ignored);
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    void keep() { m_kept = true; }

  private:
    std::filesystem::path m_copy;
    bool m_kept = false;
};

/// Holds the file from before the copy to the end, so that nothing is written between the two.
void takeSteps(const std::filesystem::path& file, const Clock& clock) {
    Database database(file, Database::Mode::Existing, clock);
    database.setPatience(patience);
    database.run("PRAGMA synchronous = FULL; BEGIN IMMEDIATE");
    const int version = versionOf(database);
    if (version >= schemaVersion())
        return; // another desk was first
    Copy copy(file, version, clock);
    for (const EmbeddedText& migration : migrations())
        if (versionOf(migration) > version)
            database.run(migration.text);
    database.run("ANALYZE; PRAGMA user_version = " + std::to_string(schemaVersion()) + "; COMMIT");
    copy.keep();
}

} // namespace

int schemaVersion() {
    return versionOf(migrations().back());
}

int versionOf(const Database& database) {
    Query version(database, "PRAGMA user_version");
    version.next();
    return sqlite3_column_int(version.statement(), 0);
}

void migrate(const std::filesystem::path& file, const Clock& clock) {
    const auto failure = [&](const std::string& reason, long number, const std::string& state) {
        return serverError("The database in \"" + file.parent_path().string() +
                               "\" is of an older version and could not be changed to this one; it is as it was. " +
                               reason,
                           number, state);
    };
    try {
        takeSteps(file, clock);
    } catch (const ado::Error& error) {
        throw failure(error.what(), error.number(), error.sqlState());
    } catch (const std::runtime_error& error) { // the copy's file
        throw failure(error.what(), 5120, "HY000");
    }
}

} // namespace opd::adapters::sqlite
