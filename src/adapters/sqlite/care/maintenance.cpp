#include "adapters/sqlite/care/maintenance.h"

#include "adapters/sqlite/engine/errors.h"
#include "adapters/sqlite/migrations.h"
#include "adapters/sqlite/whole_copy.h"
#include "base/os/open_file.h"
#include "base/os/safe_file.h"
#include "base/os/system_clock.h"

#include <algorithm>
#include <stdexcept>
#include <unistd.h>

namespace opd::adapters::sqlite {

namespace {

/// How long an administrator waits for the desks.
constexpr std::chrono::minutes patience{1};

constexpr long damaged = 824; ///< the number of an error that says so

std::filesystem::path existing(const std::filesystem::path& file) {
    std::error_code unreadable;
    const bool isFile = std::filesystem::is_regular_file(file, unreadable);
    if (unreadable == std::errc::permission_denied || (isFile && eaccess(file.c_str(), R_OK) != 0))
        throw std::runtime_error("\"" + file.string() + "\" is closed to this user.");
    if (!isFile)
        throw std::runtime_error("There is no hospital database \"" + file.string() + "\".");
    return file;
}

/// The hospital of a folder, opened.
class Hospital : public Database {
  public:
    explicit Hospital(const std::filesystem::path& file) : Hospital(file, file) {}

    /// `name` is how the administrator knows the file.
    Hospital(const std::filesystem::path& file, const std::filesystem::path& name)
        : Database(existing(file), Mode::Existing, os::machineClock()) {
        setPatience(patience);
        const std::string called = "\"" + name.string() + "\"";
        refuseUnlessHospital(*this, called);
        if (versionOf(*this) > schemaVersion())
            throw std::runtime_error(called + " belongs to a newer version of this program: install that one.");
    }
};

std::vector<std::string> texts(const Database& database, const std::string& sql) {
    std::vector<std::string> found;
    for (Query query(database, sql.c_str()); query.next();)
        found.push_back(query.value(0).asText());
    return found;
}

/// Which damage the engine finds; also where that keeps it from looking at all of the file.
std::vector<std::string> damagesOf(const std::filesystem::path& file, const std::filesystem::path& name) {
    try {
        std::vector<std::string> damages = texts(Hospital(file, name), "PRAGMA integrity_check");
        std::erase(damages, "ok");
        return damages;
    } catch (const ado::Error& error) {
        if (error.number() != damaged)
            throw;
        return {error.what()};
    }
}

/// The files of a draft, held against another restore, with its journals and the copy that a migration leaves: those
/// are gone before and after it.
class DraftFiles {
  public:
    explicit DraftFiles(std::filesystem::path file) : m_file(std::move(file)), m_held(m_file) { removeOthers(); }
    ~DraftFiles() {
        removeOthers();
        std::error_code ignored;
        std::filesystem::remove(m_file, ignored);
    }
    DraftFiles(const DraftFiles&) = delete;
    DraftFiles& operator=(const DraftFiles&) = delete;

    const std::filesystem::path& file() const { return m_file; }

    /// A hospital that is in use, or was copied with its journal, has its last visits there. Without one the file is
    /// all, and only read.
    void fill(const std::filesystem::path& backup) const {
        std::error_code none;
        const auto journal = std::filesystem::file_size(backup.string() + "-wal", none);
        if (!none && journal > 0)
            copyInto(m_file, backup, os::machineClock());
        else
            m_held.fill(backup);
    }

  private:
    /// Each by its name: an administrator's own copy may be called nearly the same.
    void removeOthers() const {
        std::vector<std::string> ends{"-wal", "-shm", "-journal", ".queue"};
        for (int version = 1; version < schemaVersion(); ++version)
            ends.push_back(".version-" + std::to_string(version));
        std::error_code ignored;
        for (const std::string& end : ends)
            std::filesystem::remove(m_file.string() + end, ignored);
    }

    std::filesystem::path m_file;
    os::HeldFile m_held;
};

std::filesystem::path draftOf(const std::filesystem::path& folder, const std::filesystem::path& backup) {
    existing(backup);
    if (!std::filesystem::is_directory(folder))
        throw std::runtime_error("There is no folder \"" + folder.string() + "\" for the hospital. Make it first.");
    std::filesystem::path draft = databaseFile(folder).string() + ".restored";
    std::error_code missing;
    if (std::filesystem::equivalent(draft, backup, missing))
        throw std::runtime_error("\"" + backup.string() + "\" is what a restore calls its own draft, which it takes " +
                                 "away. Give the backup another name first.");
    return draft;
}

/// A copy of a backup beside the hospital that it is to be put into, brought to this program's version; gone at the end
/// of the scope. The backup itself may lie where nothing can be written.
class Draft {
  public:
    Draft(const std::filesystem::path& folder, const std::filesystem::path& backup) : m_files(draftOf(folder, backup)) {
        m_files.fill(backup);
        if (const std::vector<std::string> damages = damagesOf(file(), backup); !damages.empty())
            throw std::runtime_error("The backup \"" + backup.string() + "\" is damaged: " + damages.front());
        if (versionOf(Hospital(file())) < schemaVersion())
            migrate(file(), os::machineClock());
    }

    const std::filesystem::path& file() const { return m_files.file(); }

  private:
    DraftFiles m_files;
};

/// The statements that make what a hospital has lost (a table, an index, a trigger) as the attached database "backup"
/// has it, in the order in which it was made there.
std::string makeLost(const Database& database) {
    std::string statements;
    for (const std::string& sql :
         texts(database, "SELECT sql FROM backup.sqlite_schema WHERE sql IS NOT NULL AND name NOT IN "
                         "(SELECT name FROM main.sqlite_schema) ORDER BY rowid"))
        statements += sql + ";";
    return statements;
}

/// The statements that put the rows of the attached database "backup" in the place of one's own.
std::string replaceRows(const Database& database) {
    std::string statements;
    for (const std::string& table :
         texts(database, "SELECT name FROM backup.sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite_%'")) {
        std::string columns;
        for (const std::string& column :
             texts(database, "SELECT name FROM pragma_table_info('" + table + "', 'backup')"))
            columns += (columns.empty() ? "" : ", ") + column;
        if (table == "Patient_Data_tbCounter")
            statements += "INSERT INTO main." + table + " SELECT * FROM backup." + table +
                          " WHERE true ON CONFLICT (Name) DO UPDATE SET Last = max(Last, excluded.Last);";
        else
            statements += "DELETE FROM main." + table + "; INSERT INTO main." + table + " (" + columns + ") SELECT " +
                          columns + " FROM backup." + table + ";";
    }
    return statements;
}

void attach(const Database& database, const std::filesystem::path& file) {
    Query attaching(database, "ATTACH ? AS backup");
    attaching.bind(1, std::filesystem::absolute(file).string());
    attaching.next();
}

/// What is there of a database file ("") and its journals.
std::vector<std::string> partsOf(const std::filesystem::path& file) {
    std::vector<std::string> parts;
    for (const char* part : {"", "-wal", "-shm"})
        if (std::filesystem::exists(file.string() + part))
            parts.emplace_back(part);
    return parts;
}

/// Gives a damaged file and its journals, or what is left of them, another name, and answers that; nothing when nothing
/// is there. A journal that stayed would be taken for one of the file that comes in this place.
std::filesystem::path setAside(const std::filesystem::path& file) {
    const std::vector<std::string> parts = partsOf(file);
    if (parts.empty())
        return {};
    const std::string start = file.string() + ".damaged";
    std::string aside = start;
    for (int number = 2; !partsOf(aside).empty(); ++number)
        aside = start + "." + std::to_string(number);
    for (const std::string& part : parts)
        std::filesystem::rename(file.string() + part, aside + part);
    return aside + parts.front();
}

/// Numbers that were given since the backup stand on cards and papers. As far as a damaged file can still be read it
/// tells which.
void goOnCounting(const std::filesystem::path& file, const std::filesystem::path& damagedFile) {
    try {
        const Hospital hospital(file);
        attach(hospital, damagedFile);
        Query(hospital,
              "UPDATE Patient_Data_tbCounter SET Last = given.Last FROM backup.Patient_Data_tbCounter AS given "
              "WHERE given.Name = Patient_Data_tbCounter.Name AND given.Last > Patient_Data_tbCounter.Last")
            .next();
    } catch (const ado::Error&) {
        return; // nobody can tell
    }
}

/// Puts the rows in place while nobody else writes; the copy is made of what stands there at that moment.
std::filesystem::path replaceContent(const std::filesystem::path& file, const Draft& draft) {
    if (versionOf(Hospital(file)) < schemaVersion())
        migrate(file, os::machineClock());
    Hospital hospital(file);
    attach(hospital, draft.file());
    hospital.run("PRAGMA foreign_keys = OFF; PRAGMA synchronous = FULL; BEGIN IMMEDIATE");
    CopyBefore copy(file, file.string() + ".before-restore", os::machineClock());
    hospital.run(makeLost(hospital) + replaceRows(hospital) + "ANALYZE main; COMMIT");
    return copy.keep();
}

std::filesystem::path fileOf(const std::filesystem::path& place) {
    return std::filesystem::is_directory(place) ? databaseFile(place) : place;
}

void set(Database& database, const std::string& column, const ado::Value& value) {
    Query update(database, ("UPDATE Patient_Data_tbHospitalInfo SET " + column + " = ?").c_str());
    update.bind(1, value);
    update.next();
}

} // namespace

void backUp(const std::filesystem::path& folder, const std::filesystem::path& backup) {
    if (!backup.has_filename())
        throw std::runtime_error("The backup needs the name of a file.");
    if (std::filesystem::exists(backup))
        throw std::runtime_error("There is a file \"" + backup.string() + "\" already.");
    const std::filesystem::path file = databaseFile(folder);
    { const Hospital hospital(file); }
    copyWhole(file, backup, os::machineClock());
}

std::filesystem::path restore(const std::filesystem::path& folder, const std::filesystem::path& backup) {
    const std::filesystem::path file = databaseFile(folder);
    const Draft draft(folder, backup);
    if (std::filesystem::exists(file) && damagesOf(file, file).empty())
        return replaceContent(file, draft);
    std::filesystem::path kept = setAside(file);
    copyWhole(draft.file(), file, os::machineClock());
    os::giveToUsersOf(kept.empty() ? folder : kept, file);
    Database(file, Database::Mode::Existing, os::machineClock()).run("PRAGMA journal_mode = WAL");
    if (!kept.empty())
        goOnCounting(file, kept);
    return kept;
}

std::vector<std::string> faultsOf(const std::filesystem::path& place) {
    const std::filesystem::path file = fileOf(place);
    std::vector<std::string> faults = damagesOf(file, file);
    if (!faults.empty())
        return faults;
    const Hospital hospital(file);
    for (Query row(hospital, "PRAGMA foreign_key_check"); row.next();)
        faults.push_back("A row of " + row.value(0).asText() + " belongs to none of " + row.value(2).asText() + ".");
    for (const std::string& number :
         texts(hospital, "SELECT FileNum FROM Patient_Data_tbMaster WHERE FileNum IS NOT NULL GROUP BY FileNum HAVING "
                         "count(*) > 1"))
        faults.push_back("Several patients have the file number " + number + ".");
    return faults;
}

bool isOlder(const std::filesystem::path& place) {
    return versionOf(Hospital(fileOf(place))) < schemaVersion();
}

void setNames(const std::filesystem::path& folder, const HospitalNames& names) {
    Hospital hospital(databaseFile(folder));
    hospital.run("BEGIN IMMEDIATE");
    for (const auto& [column, value] : {std::pair{"Company", names.name}, std::pair{"Address1", names.address},
                                        std::pair{"ClientName", names.clientCode}})
        if (value)
            set(hospital, column, *value);
    hospital.run("COMMIT");
}

} // namespace opd::adapters::sqlite
