#pragma once

#include "adapters/sqlite/create_database.h"
#include "adapters/sqlite/engine/database.h"
#include "adapters/sqlite/provider.h"
#include "contract/hospital.h"
#include "support/files.h"

#include <filesystem>
#include <memory>

namespace opd::tests {

/// The embedded database in a temporary folder.
class EmbeddedHospital : public Hospital {
  public:
    explicit EmbeddedHospital(int patients = 12,
                              const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : m_folder(parent) {
        adapters::sqlite::DatabaseOptions options;
        options.patients = patients;
        options.now = generationDay;
        adapters::sqlite::createDatabase(folder(), options, {});
        runAsAdministrator(std::string{"INSERT INTO billing_tbBill VALUES ('"} + billedVisit + "', " +
                           std::to_string(billedAmount) + ")");
        m_providers.add("embedded", adapters::sqlite::makeSqliteProvider(m_clock));
    }
    /// Made by the statements of a file.
    explicit EmbeddedHospital(const std::filesystem::path& statements) {
        std::filesystem::create_directory(folder());
        adapters::sqlite::Database(file(), adapters::sqlite::Database::Mode::Create, m_clock)
            .run(contentOf(statements));
        m_providers.add("embedded", adapters::sqlite::makeSqliteProvider(m_clock));
    }

    std::filesystem::path folder() const { return m_folder.path() / "hospital"; }
    std::filesystem::path file() const { return folder() / "hospital.db"; }

    std::unique_ptr<ado::Connection> connect() override {
        auto connection = std::make_unique<ado::Connection>(m_providers);
        connection->Open("Initial Catalog=LABORATORY;Data Source=" + folder().string());
        return connection;
    }

    FixedClock& clock() { return m_clock; }
    /// Past everything that a connection checks.
    void runAsAdministrator(const std::string& statements) {
        using adapters::sqlite::Database;
        Database(file(), Database::Mode::Existing, m_clock).run(statements);
    }

    void setClock(const DateTime& moment) override { m_clock.moment = moment; }
    bool takesBatches() const override { return false; }

  private:
    TemporaryFolder m_folder;
    FixedClock m_clock{morning};
    ado::Providers m_providers;
};

} // namespace opd::tests
