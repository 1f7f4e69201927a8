// Two desks on one file, and a desk that is killed.
#include "adapters/sqlite/hospital.h"
#include "contract/save_statements.h"
#include "support/sql.h"

#include <csignal>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>

using namespace opd;
using namespace opd::tests;

namespace {

/// Runs the work in a process of its own, which ends without touching what the test's own process holds.
pid_t started(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child != 0)
        return child;
    try {
        work();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "child: %s\n", error.what());
        _exit(1);
    }
    _exit(0);
}

int statusOf(pid_t child) {
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

TEST(Processes, NeverDrawTheSameNumber) {
    EmbeddedHospital hospital;
    constexpr int draws = 150;
    const auto drawInto = [&](const std::filesystem::path& file) {
        const auto connection = hospital.connect();
        std::ofstream out(file);
        for (int i = 0; i < draws; ++i)
            out << newHospNum(*connection) << '\n' << newOpdNumber(*connection) << '\n';
    };
    const auto first = hospital.folder() / "first", second = hospital.folder() / "second";
    const pid_t one = started([&] { drawInto(first); });
    const pid_t two = started([&] { drawInto(second); });
    ASSERT_EQ(statusOf(one), 0);
    ASSERT_EQ(statusOf(two), 0);
    std::set<std::string> numbers;
    for (const auto& file : {first, second}) {
        std::ifstream in(file);
        for (std::string line; std::getline(in, line);)
            EXPECT_TRUE(numbers.insert(line).second) << line << " was given twice";
    }
    EXPECT_EQ(numbers.size(), 4U * draws);
}

void registerOne(ado::Connection& connection) {
    const std::string number = newHospNum(connection);
    const std::string visit = newOpdNumber(connection) + "B";
    ado::Transaction transaction(connection);
    connection.Execute(sql(callOf("sp_aopd_Update_TbMaster", masterValues(number, visit))));
    connection.Execute(sql(callOf("sp_AOPD_UpdateOPDHistory", historyValues(number, visit))));
    connection.Execute(sql(callOf("sp_aopd_Update_tbOutpatient", visitValues(number, visit))));
    transaction.commit();
}

TEST(Processes, KilledAtAnyMomentLeaveNoHalfRegistration) {
    EmbeddedHospital hospital;
    std::size_t registered = 0;
    for (const int milliseconds : {15, 40, 23, 61, 34, 52}) {
        const pid_t desk = started([&] {
            const auto connection = hospital.connect();
            while (true)
                registerOne(*connection);
        });
        usleep(static_cast<useconds_t>(milliseconds) * 1000);
        kill(desk, SIGKILL);
        EXPECT_TRUE(WIFSIGNALED(statusOf(desk))) << "the desk ended by itself";

        const auto connection = hospital.connect();
        const auto masters =
            rowsOf(*connection, "Select HospNum from Patient_Data..tbMaster where LastName = 'NUÑEZ-DELA CRUZ' ");
        const auto visits =
            rowsOf(*connection, "Select HospNum from Patient_Data..tbOutPatient where UserID = 'CLERK'");
        const auto histories =
            rowsOf(*connection, "Select HospNum from Patient_Data..tbOutPatientHistory where Findings = 'FINDINGS'");
        EXPECT_EQ(std::set<std::string>(masters.begin(), masters.end()),
                  std::set<std::string>(visits.begin(), visits.end()));
        EXPECT_EQ(histories.size(), visits.size());
        EXPECT_GE(visits.size(), registered) << "a committed registration was lost";
        registered = visits.size();
        EXPECT_NO_THROW(registerOne(*connection)) << "the next desk cannot work";
        ++registered;
    }
    EXPECT_GT(registered, 6U) << "no desk lived long enough to register: the kills prove nothing";
}

} // namespace
