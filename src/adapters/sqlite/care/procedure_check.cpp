#include "adapters/sqlite/care/procedure_check.h"

#include "adapters/sqlite/audited_save.h"
#include "adapters/sqlite/drawn_numbers.h"
#include "adapters/sqlite/migrations.h"
#include "adapters/sqlite/procedures.h"
#include "ado/error.h"
#include "base/os/system_clock.h"

namespace opd::adapters::sqlite {

namespace {

Database opened(const std::filesystem::path& folder) {
    return {databaseFile(folder), Database::Mode::Existing, os::machineClock()};
}

/// Has the engine read every statement of the body, which names a table or column that is not there.
void prepareAll(const Database& database, const std::string& body) {
    for (const char* rest = body.c_str(); *rest != '\0';)
        const Query query(database, rest, &rest);
}

} // namespace

std::vector<CalledProcedure> calledProcedures() {
    std::vector<CalledProcedure> called;
    for (const Procedure* procedure : allProcedures()) {
        const std::size_t dots = procedure->name.find("..");
        CalledProcedure& one = called.emplace_back();
        one.database = procedure->name.substr(0, dots);
        one.name = procedure->name.substr(dots + 2);
        for (const Procedure::Parameter& parameter : procedure->parameters)
            one.arguments.push_back(parameter.name);
        if (!procedure->output.empty())
            one.arguments.push_back(procedure->output);
    }
    return called;
}

SchemaVersions versionsOf(const std::filesystem::path& folder) {
    std::error_code closed;
    if (std::filesystem::exists(databaseFile(folder), closed))
        refuseUnlessWritable(databaseFile(folder));
    const Database database = opened(folder);
    refuseUnlessHospital(database, "The file hospital.db in \"" + folder.string() + "\"");
    return {versionOf(database), schemaVersion()};
}

std::vector<std::string> faultsOfProcedures(const std::filesystem::path& folder) {
    Database database = opened(folder);
    guardDrawnNumbers(database);
    rememberAuditedSave(database);
    std::vector<std::string> faults;
    for (const Procedure* procedure : allProcedures()) {
        try {
            prepareAll(database, procedure->body);
        } catch (const ado::Error& error) {
            faults.push_back(procedure->name + ": " + error.what());
        }
    }
    return faults;
}

} // namespace opd::adapters::sqlite
