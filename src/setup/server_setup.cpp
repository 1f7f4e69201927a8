#include "setup/server_setup.h"

#include "ado/error.h"
#include "ado/recordset.h"
#include "base/text/text.h"
#include "setup/insert_statements.h"
#include "setup/script_batches.h"
#include "setup/server_scripts.h"

#include <string_view>

namespace opd::setup {

namespace {

constexpr std::string_view hospitalScript = "13-hospital.sql";
constexpr std::string_view loginScript = "15-login.sql";
constexpr std::string_view noPassword = "@Password nvarchar(100) = N'';";

/// The hospital's row of settings, where it has none: the script that comes behind leaves it as it is.
std::string settingsOf(const ServerOptions& options) {
    return "USE Patient_Data;\nGO\n"
           "IF NOT EXISTS (SELECT 1 FROM dbo.tbHospitalInfo)\n"
           "INSERT INTO dbo.tbHospitalInfo (ClientName, Company, Address1)\nVALUES (" +
           quoted(options.clientCode) + ", " + quoted(options.hospitalName) + ", " + quoted(options.address) +
           ");\nGO\n";
}

/// The script with the password between the quotes that wait for one.
std::string withPassword(const std::string& script, const std::string& password) {
    const std::string given = "@Password nvarchar(100) = " + quoted(password) + ";";
    return text::replaced(script, std::string{noPassword}, given);
}

} // namespace

bool ServerSetup::make(const ServerOptions& options) {
    for (std::size_t i = 0; i < serverScriptCount; ++i) {
        const auto& [name, script] = serverScripts[i];
        if (name == hospitalScript)
            send("the hospital's settings", settingsOf(options));
        if (name == loginScript && options.deskPassword)
            send(name, withPassword(script, *options.deskPassword));
        else
            send(name, script);
    }
    return options.patients == 0 || addPatients(options);
}

void ServerSetup::send(const std::string& name, const std::string& script) {
    const std::vector<Batch> batches = batchesOf(script);
    const int total = static_cast<int>(batches.size());
    int done = 0;
    for (const Batch& batch : batches) {
        try {
            run(batch.text);
        } catch (const ado::Error& error) {
            throw ado::Error(name + ", the batch of line " + std::to_string(batch.line) + ": " + error.what(),
                             error.source(), error.number(), error.sqlState());
        }
        tell(name, ++done, total);
    }
}

bool ServerSetup::addPatients(const ServerOptions& options) {
    ado::Recordset first = m_connection.Execute("Select top 1 HospNum from Patient_Data..tbMaster");
    if (!first.EndOfFile())
        return false;
    ado::Transaction transaction(m_connection);
    InsertStatements statements([this](const ado::Statement& statement) { m_connection.Execute(statement); });
    demonstration::generatePatients(statements, {options.patients, options.seed, options.today},
                                    [this](int done, int total) { tell("patients", done, total); });
    transaction.commit();
    return true;
}

// The text is a script of the program's own.
void ServerSetup::run(const std::string& text) {
    m_connection.Execute(ado::Statement::fromOutside(text));
}

void ServerSetup::tell(const std::string& step, int done, int total) const {
    if (m_progress)
        m_progress({step, done, total});
}

} // namespace opd::setup
