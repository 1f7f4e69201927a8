#include "prove/proof.h"

#include "adapters/odbc/provider.h"
#include "prove/own_names.h"
#include "setup/server_setup.h"

#include <fmt/core.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <thread>
#include <unistd.h>

namespace opd::prove {

namespace {

constexpr std::chrono::minutes patienceOfMaking{10};

/// The settings that a desk has in its settings file, where the environment gives them.
adapters::odbc::Options optionsOfProcess() {
    const auto given = [](const char* name) {
        const char* const value = std::getenv(name);
        return std::string{value == nullptr ? "" : value};
    };
    adapters::odbc::Options options;
    if (const std::string driver = given("OPD_TEST_DRIVER"); !driver.empty())
        options.driver = driver;
    options.encryptionRequired = given("OPD_TEST_ENCRYPT") == "required";
    return options;
}

void showProgress(const setup::ServerProgress& progress) {
    fmt::print(stderr, "\r\x1b[KMaking a hospital: {}, {} of {}", progress.step, progress.done, progress.total);
    std::fflush(stderr);
}

/// The database alone, with no one else in it, as DROP DATABASE wants it; Babelfish knows no such option.
std::string dropOf(const std::string& database) {
    const std::string exists = "IF DB_ID(N'" + database + "') IS NOT NULL";
    return exists + " AND SERVERPROPERTY(N'babelfish') IS NULL EXEC(N'ALTER DATABASE " + database +
           " SET SINGLE_USER WITH ROLLBACK IMMEDIATE;');\nGO\n" + exists + " DROP DATABASE " + database + ";\nGO\n";
}

const std::string deskLogin = std::string{ownPrefix} + "desk";

/// A login with the role of the desks in each database.
std::string loginOf(const std::string& password) {
    std::string script = "USE master;\nGO\nCREATE LOGIN " + deskLogin + " WITH PASSWORD = N'" + password +
                         "', DEFAULT_DATABASE = LABORATORY;\nGO\n";
    for (const char* database : databases)
        script += std::string{"USE "} + database + ";\nGO\nCREATE USER " + deskLogin + " FOR LOGIN " + deskLogin +
                  ";\nGO\nALTER ROLE opd_desk ADD MEMBER " + deskLogin + ";\nGO\n";
    return script;
}

std::string dropOfLogin() {
    return "IF EXISTS (SELECT 1 FROM sys.server_principals WHERE name = N'" + deskLogin + "') DROP LOGIN " + deskLogin +
           ";\n";
}

/// Long enough for the rules of any server.
std::string newPassword() {
    std::random_device source;
    std::uniform_int_distribution<> letter('a', 'z');
    std::string password = "P4-";
    while (password.size() < 24)
        password += static_cast<char>(letter(source));
    return password;
}

/// A server may still be busy with the end of a connection, and its database in use.
void patiently(const std::function<void()>& work) {
    for (int time = 1;; ++time) {
        try {
            return work();
        } catch (const ado::Error&) {
            if (time == 5)
                throw;
        }
        std::this_thread::sleep_for(std::chrono::seconds{1});
    }
}

} // namespace

Proof::Proof(const Server& server) : m_server(server) {
    m_providers.add("server", withOwnNames(adapters::odbc::makeOdbcProvider(&optionsOfProcess)));
    m_administrator = connect("master");
    m_administrator->setPatience(patienceOfMaking);
}

std::unique_ptr<ado::Connection> Proof::connect(const std::string& catalog) const {
    auto connection = std::make_unique<ado::Connection>(m_providers);
    connection->Open(ado::connectionString(
        {m_server.user, m_server.password, m_server.name, catalog == "master" ? catalog : ownName(catalog)}));
    return connection;
}

void Proof::make() {
    const bool onTerminal = ::isatty(STDERR_FILENO) == 1;
    setup::ServerSetup setup(*m_administrator, onTerminal ? &showProgress : setup::ServerSetup::Progress{});
    setup::ServerOptions options;
    options.patients = 12;
    options.today = tests::generationDay;
    setup.make(options);
    setup.send("a bill", std::string{"INSERT INTO billing.dbo.tbBill (IDNum, Amount) VALUES (N'"} + tests::billedVisit +
                             "', " + std::to_string(tests::billedAmount) + ");");
    if (onTerminal)
        fmt::print(stderr, "\r\x1b[K");
}

void Proof::refuseEarlierOnes() {
    setup::ServerSetup setup(*m_administrator);
    for (const char* database : databases)
        setup.send("the look for an earlier proof",
                   std::string{"IF DB_ID(N'"} + database + "') IS NOT NULL RAISERROR(N'The database " +
                       ownName(database) + " of an earlier proof is there. Give --anew to drop it.', 16, 1);");
}

void Proof::drop() {
    setup::ServerSetup setup(*m_administrator);
    setup.send("leaving its databases", "USE master;\nGO\n");
    for (const char* database : databases)
        patiently([&] { setup.send("dropping a database", dropOf(database)); });
    patiently([&] { setup.send("dropping the login of a desk", dropOfLogin()); });
}

void Proof::makeDeskLogin() {
    m_deskPassword = newPassword();
    setup::ServerSetup(*m_administrator).send("a login of a desk", dropOfLogin() + "GO\n" + loginOf(m_deskPassword));
}

std::unique_ptr<ado::Connection> Proof::connectAsDesk() const {
    auto connection = std::make_unique<ado::Connection>(m_providers);
    connection->Open(ado::connectionString({deskLogin, m_deskPassword, m_server.name, ownName("LABORATORY")}));
    return connection;
}

} // namespace opd::prove
