#include "adapters/sqlite/create_database.h"
#include "base/os/system_clock.h"

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/generator/patients.h"
#include "adapters/sqlite/generator/reference.h"
#include "adapters/sqlite/procedures.h"
#include "base/os/open_file.h"
#include "base/os/safe_file.h"

#include <stdexcept>

namespace opd::adapters::sqlite {

namespace {

constexpr const char* unfinishedName = "hospital.db.unfinished";

/// The file that becomes the database, held against others that make one in the same folder. What is unfinished at the
/// end of its scope is removed.
class Unfinished {
  public:
    explicit Unfinished(const std::filesystem::path& file) : m_file(file), m_held(file) { removeJournals(); }
    ~Unfinished() {
        removeJournals();
        std::error_code ignored;
        std::filesystem::remove(m_file, ignored);
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

  private:
    void removeJournals() const {
        std::error_code ignored;
        for (const char* suffix : {"-wal", "-shm", "-journal"})
            std::filesystem::remove(m_file.string() + suffix, ignored);
    }

    std::filesystem::path m_file;
    os::HeldFile m_held;
};

/// What a creation that was killed has left is no use of the folder.
void refuseUsedFolder(const std::filesystem::path& folder) {
    if (!std::filesystem::exists(folder))
        return;
    if (!std::filesystem::is_directory(folder))
        throw std::runtime_error("\"" + folder.string() + "\" is no folder.");
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (!entry.path().filename().string().starts_with(unfinishedName))
            throw std::runtime_error("The folder \"" + folder.string() + "\" is not empty.");
}

void fill(Database& database, const DatabaseOptions& options, const DateTime& today,
          const std::function<void(int, int)>& progress) {
    database.run("BEGIN");
    database.run(schemaText());
    insertReferenceData(database);
    Query hospital(database,
                   "INSERT INTO Patient_Data_tbHospitalInfo (ClientName, Company, Address1) VALUES (?, ?, ?)");
    hospital.bind(1, options.clientCode);
    hospital.bind(2, options.hospitalName);
    hospital.bind(3, options.address);
    hospital.next();
    insertPatients(database, {options.patients, options.seed, today}, progress);
    database.run("PRAGMA user_version = " + std::to_string(schemaVersion));
    database.run("COMMIT; ANALYZE; PRAGMA journal_mode = WAL");
}

} // namespace

void createDatabase(const std::filesystem::path& folder, const DatabaseOptions& options,
                    const std::function<void(int, int)>& progress) {
    refuseUsedFolder(folder);
    os::makeFolderForGroup(folder);
    const std::filesystem::path unfinished = folder / unfinishedName;
    const Unfinished held(unfinished);
    const FixedClock clock(options.now ? *options.now : os::SystemClock{}.now());
    {
        Database database(unfinished, Database::Mode::Create, clock);
        fill(database, options, clock.now().date(), progress);
    }
    std::filesystem::rename(unfinished, databaseFile(folder));
}

} // namespace opd::adapters::sqlite
