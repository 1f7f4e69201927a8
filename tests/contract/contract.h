#pragma once

#include "contract/hospital.h"

#include <functional>
#include <gtest/gtest.h>
#include <ostream>

namespace opd::tests {

/// A provider that is held to the contract. Its tests say INSTANTIATE_TEST_SUITE_P(Name, Contract, Values(...)).
struct Provided {
    const char* name;
    std::function<std::unique_ptr<Hospital>()> make;
};

inline void PrintTo(const Provided& provided, std::ostream* out) {
    *out << provided.name;
}

/// What every hospital's database answers, whichever provider serves it: connections, statements and errors alone.
class Contract : public testing::TestWithParam<Provided> {
  protected:
    using Rows = std::vector<std::string>;

    std::unique_ptr<Hospital> hospital = GetParam().make();
    std::unique_ptr<ado::Connection> connection = hospital->connect();

    Rows rows(const std::string& statement) { return rowsOf(*connection, statement); }
    std::string error(const std::string& statement) { return errorOf(*connection, statement); }
    /// Puts the counters of the numbers behind what is stored.
    void resetCounters();

    /// The statement fails with that "SQLSTATE/number".
    void expectError(const std::string& statement, const std::string& expected);
    void run(const std::string& procedure, const std::vector<std::string>& values);

    /// What the database's own clock shows.
    DateTime now() { return *connection->Execute("select GETDATE() AS Tdate").Fields("Tdate").get<DateTime>(); }

    /// The age as the desk counts it, by the database's own clock.
    std::string ageOf(const DateTime& born) {
        return std::to_string(static_cast<int>(static_cast<double>(daysBetween(born, now())) / 365.25));
    }
};

} // namespace opd::tests
