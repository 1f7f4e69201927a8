#include "adapters/sqlite/create_database.h"

#include "adapters/sqlite/creation/demonstration_rows.h"
#include "adapters/sqlite/creation/reference.h"
#include "adapters/sqlite/engine/database.h"
#include "adapters/sqlite/migrations.h"
#include "adapters/sqlite/procedures.h"
#include "adapters/sqlite/unfinished_file.h"
#include "base/os/safe_file.h"
#include "base/os/system_clock.h"
#include "demonstration/population.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace opd::adapters::sqlite {

namespace {

/// What a creation that was killed has left is no use of the folder.
void refuseUsedFolder(const std::filesystem::path& folder) {
    const std::string unfinished = databaseFile(folder).filename().string() + unfinishedSuffix;
    if (!std::filesystem::exists(folder))
        return;
    if (!std::filesystem::is_directory(folder))
        throw std::runtime_error("\"" + folder.string() + "\" is no folder.");
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (!entry.path().filename().string().starts_with(unfinished))
            throw std::runtime_error("The folder \"" + folder.string() + "\" is not empty.");
}

/// The indexes of a database, left out while many rows are added: to sort them once is much less work than to keep them
/// in order.
class LaterIndexes {
  public:
    explicit LaterIndexes(Database& database) : m_database(database) {
        std::vector<std::string> names;
        for (Query index(database, "SELECT name, sql FROM sqlite_schema WHERE type = 'index' AND sql IS NOT NULL");
             index.next();) {
            names.push_back(index.value(0).asText());
            m_statements.push_back(index.value(1).asText());
        }
        for (const std::string& name : names)
            database.run("DROP INDEX " + name);
    }

    void make() const {
        for (const std::string& statement : m_statements)
            m_database.run(statement);
    }

  private:
    Database& m_database;
    std::vector<std::string> m_statements;
};

void fill(Database& database, const DatabaseOptions& options, const DateTime& today,
          const std::function<void(int, int)>& progress) {
    database.run("PRAGMA cache_size = -200000; BEGIN");
    database.run(schemaText());
    const LaterIndexes indexes(database);
    insertReferenceData(database);
    Query hospital(database,
                   "INSERT INTO Patient_Data_tbHospitalInfo (ClientName, Company, Address1) VALUES (?, ?, ?)");
    hospital.bind(1, options.clientCode);
    hospital.bind(2, options.hospitalName);
    hospital.bind(3, options.address);
    hospital.next();
    DemonstrationRows rows(database);
    demonstration::generatePatients(rows, {options.patients, options.seed, today}, progress);
    indexes.make();
    database.run("PRAGMA user_version = " + std::to_string(schemaVersion()));
    database.run("COMMIT; ANALYZE; PRAGMA journal_mode = WAL");
}

} // namespace

void createDatabase(const std::filesystem::path& folder, const DatabaseOptions& options,
                    const std::function<void(int, int)>& progress) {
    refuseUsedFolder(folder);
    os::makeFolderForGroup(folder);
    const UnfinishedFile file(databaseFile(folder));
    const FixedClock clock(options.now.value_or(os::machineClock().now()));
    {
        Database database(file.path(), Database::Mode::Create, clock);
        fill(database, options, clock.now().date(), progress);
    }
    file.finish();
}

} // namespace opd::adapters::sqlite
