// Proves a server of a hospital: asks it everything that the desk asks of its database, in databases of its own. Ends
// with 0 when it does all of it, 1 when it does not, 2 when it could not be asked, 77 when none is named.
#include "ado/error.h"
#include "contract/contract.h"
#include "prove/proof.h"
#include "prove/table.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

using namespace opd;

namespace {

constexpr int passed = 0, failed = 1, notAsked = 2, skipped = 77;

std::optional<prove::Proof> ofProcess;

/// What a case sees of it.
class ServerHospital final : public tests::Hospital {
  public:
    std::unique_ptr<ado::Connection> connect() override { return prove::theProof().connect(); }
    void setClock(const DateTime&) override {} // a server goes by its own
    bool isReal() const override { return true; }
};

/// A password that the environment holds stays neither there nor where others may look for the environment.
std::optional<std::string> passwordOfEnvironment() {
    char* const given = std::getenv("OPD_TEST_PASSWORD");
    if (given == nullptr)
        return std::nullopt;
    std::string password = given;
    std::fill_n(given, password.size(), '\0');
    ::unsetenv("OPD_TEST_PASSWORD");
    return password;
}

/// The server that the environment names.
std::optional<prove::Server> serverOfProcess(bool passwordFromInput) {
    std::optional<std::string> password = passwordOfEnvironment();
    if (std::string line; passwordFromInput && std::getline(std::cin, line))
        password = line;
    const char* const name = std::getenv("OPD_TEST_SERVER");
    const char* const user = std::getenv("OPD_TEST_USER");
    if (name == nullptr || user == nullptr || !password)
        return std::nullopt;
    return prove::Server{name, user, *password};
}

int verdict(const std::string& server, const testing::UnitTest& all) {
    if (all.failed_test_count() == 0 && all.successful_test_count() > 0) {
        fmt::print("\nThe server \"{}\" does everything that the desk asks of its database ({} of {} cases): desks can "
                   "work with it.\n",
                   server, all.successful_test_count(), all.test_to_run_count());
        return passed;
    }
    fmt::print("\nThe server \"{}\" does not do everything that the desk asks of its database: {} of {} cases failed. "
               "Let no desk work with it before they pass; what was asked and what came stands below each of them.\n",
               server, all.failed_test_count(), all.test_to_run_count());
    return failed;
}

/// Takes the databases away when it is left, but for who wants to look at them.
class Made {
  public:
    explicit Made(bool keep) : m_keep(keep) {}
    Made(const Made&) = delete;
    Made& operator=(const Made&) = delete;
    ~Made() {
        try {
            if (!m_keep)
                prove::theProof().drop();
        } catch (const std::exception& failure) {
            fmt::print("The databases of this proof are still there: {}\n", failure.what());
        }
    }

  private:
    bool m_keep;
};

int ask(const prove::Server& server, bool anew, bool keep) {
    prove::Proof& proof = ofProcess.emplace(server);
    if (anew)
        proof.drop();
    proof.refuseEarlierOnes();
    const Made made(keep);
    proof.make();
    const int ignored = RUN_ALL_TESTS();
    static_cast<void>(ignored); // the table and the verdict say more
    return verdict(server.name, *testing::UnitTest::GetInstance());
}

} // namespace

opd::prove::Proof& opd::prove::theProof() {
    return *ofProcess;
}

namespace opd::tests {

INSTANTIATE_TEST_SUITE_P(Server, Contract,
                         testing::Values(Provided{"server", [] { return std::make_unique<ServerHospital>(); }}),
                         [](const auto& provided) { return std::string{provided.param.name}; });

} // namespace opd::tests

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const auto isGiven = [&](std::string_view option) {
        return std::find(argv + 1, argv + argc, option) != argv + argc;
    };
    const bool anew = isGiven("--anew"), keep = isGiven("--keep");
    const std::optional<prove::Server> server = serverOfProcess(isGiven("--password-stdin"));
    if (!server) {
        fmt::print("Skipped: OPD_TEST_SERVER, OPD_TEST_USER and OPD_TEST_PASSWORD name no server to prove.\n");
        return skipped;
    }
    testing::TestEventListeners& listeners = testing::UnitTest::GetInstance()->listeners();
    delete listeners.Release(listeners.default_result_printer());
    listeners.Append(new prove::Table);
    try {
        return ask(*server, anew, keep);
    } catch (const std::exception& failure) {
        fmt::print("\nThe server \"{}\" could not be asked: {}\n", server->name, failure.what());
        return notAsked;
    }
}
