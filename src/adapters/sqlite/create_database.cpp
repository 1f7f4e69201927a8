#include "adapters/sqlite/create_database.h"

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/generator/patients.h"
#include "adapters/sqlite/generator/reference.h"
#include "adapters/sqlite/procedures.h"

#include <stdexcept>

namespace opd::adapters::sqlite {

namespace {

/// Removes the unfinished files at the end of its scope unless the database became whole.
class Unfinished {
  public:
    explicit Unfinished(std::filesystem::path file) : m_file(std::move(file)) {}
    ~Unfinished() {
        std::error_code ignored;
        for (const char* suffix : {"", "-wal", "-shm", "-journal"})
            std::filesystem::remove(m_file.string() + suffix, ignored);
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

  private:
    std::filesystem::path m_file;
};

void fill(Database& database, const DatabaseOptions& options, const std::function<void(int, int)>& progress) {
    database.run("BEGIN");
    database.run(schemaText());
    insertReferenceData(database);
    Query hospital(database,
                   "INSERT INTO Patient_Data_tbHospitalInfo (ClientName, Company, Address1) VALUES (?, ?, ?)");
    hospital.bind(1, options.clientCode);
    hospital.bind(2, options.hospitalName);
    hospital.bind(3, options.address);
    hospital.next();
    insertPatients(database, options.patients, options.seed, progress);
    database.run("PRAGMA user_version = " + std::to_string(schemaVersion));
    database.run("COMMIT; ANALYZE; PRAGMA journal_mode = WAL");
}

} // namespace

void createDatabase(const std::filesystem::path& folder, const DatabaseOptions& options,
                    const std::function<void(int, int)>& progress) {
    if (std::filesystem::exists(folder) && !std::filesystem::is_empty(folder))
        throw std::runtime_error("The folder \"" + folder.string() + "\" is not empty.");
    std::filesystem::create_directories(folder);
    const std::filesystem::path unfinished = folder / "hospital.db.unfinished";
    const Unfinished cleanUp(unfinished);
    const SystemClock clock;
    {
        Database database(unfinished, Database::Mode::Create, clock);
        fill(database, options, progress);
    }
    std::filesystem::rename(unfinished, databaseFile(folder));
}

} // namespace opd::adapters::sqlite
