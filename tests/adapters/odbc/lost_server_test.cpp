// What a connection does when its server goes away, falls silent or speaks nonsense.
#include "adapters/odbc/served_hospital.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace opd::tests {
namespace {

using namespace std::chrono_literals;

constexpr char reading[] = "Select LastName from Patient_Data..tbMaster where HospNum = '00000001'";
constexpr char writing[] = "Update Patient_Data..tbMaster set HouseStreet = 'X' where HospNum = '00000001'";

struct LostServer : testing::Test {
    ServedHospital hospital;
    std::unique_ptr<ado::Connection> connection;

    void SetUp() override {
        hospital.options.loginTimeout = hospital.options.statementTimeout = 1s;
        connection = hospital.connect();
        connection->setPatience(1s);
    }

    /// A server that is as it was, and the fault of its next statement of the kind.
    void meet(const std::string& fault, const std::string& where) {
        hospital.server().clearFaults();
        const std::size_t colon = std::min(fault.find(':'), fault.size());
        hospital.server().addFault(fault.substr(0, colon) + "@" + where + fault.substr(colon));
        hospital.server().forgetReceived();
    }

    long timesReceived(const std::string& text) {
        const auto received = hospital.server().received();
        return std::count_if(received.begin(), received.end(), [&](const auto& each) { return each.text == text; });
    }

    std::string readAgain() { return rowsOf(*connection, reading).at(0); }

    /// How the call failed, as its SQLSTATE, a mark of doubt, and its message.
    static std::string failureOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const ado::Error& error) {
            return error.sqlState() + (error.leavesDoubt() ? "? " : " ") + error.what();
        }
        return {};
    }
};

// Drops come before the statement, behind it and in the middle of its answer; garbage ends a connection as well.
TEST_F(LostServer, WhatReadsIsSentAgainWhatWritesNeverAndNothingOfATransactionIsStored) {
    const std::string lost = "The connection to the database server was lost";
    for (const std::string fault : {"drop-before", "drop-after", "drop-within", "garbage"}) {
        SCOPED_TRACE(fault);
        meet(fault, "Select LastName");
        EXPECT_EQ(readAgain(), "DELA CRUZ");
        EXPECT_EQ(timesReceived(reading), 2);

        meet(fault, "Update");
        EXPECT_TRUE(failureOf([&] {
                        connection->Execute(writing);
                    }).starts_with("08S01? " + lost + " before it answered. It is not known whether this was stored"));
        EXPECT_EQ(timesReceived(writing), 1);
        EXPECT_EQ(readAgain(), "DELA CRUZ") << "the next statement finds the server again";

        meet(fault, "begin");
        connection->BeginTrans(); // nothing is lost by beginning again
        connection->RollbackTrans();

        meet(fault, "Update");
        {
            ado::Transaction transaction(*connection);
            for (int time = 0; time < 2; ++time) // and no word of it to another connection
                EXPECT_TRUE(failureOf([&] {
                                connection->Execute(writing);
                            }).starts_with("08S01 " + lost + ". Nothing of the unfinished transaction is stored."));
        }
        EXPECT_EQ(timesReceived(writing), 1);
        EXPECT_EQ(readAgain(), "DELA CRUZ");

        meet(fault, "commit");
        {
            ado::Transaction transaction(*connection);
            EXPECT_TRUE(
                failureOf([&] { transaction.commit(); }).starts_with("08007? " + lost + " before it answered."));
        }
        EXPECT_EQ(readAgain(), "DELA CRUZ");
    }
}

TEST_F(LostServer, ASilentOneIsWaitedForAsLongAsTheSettingsSay) {
    const std::string late = " The database server did not answer within 1 seconds.";
    meet("never", "Select LastName");
    EXPECT_EQ(failureOf([&] { readAgain(); }), "HYT00" + late);
    EXPECT_EQ(timesReceived(reading), 1);
    meet("slow:2500", "Update");
    EXPECT_TRUE(failureOf([&] { connection->Execute(writing); }).starts_with("HYT00?" + late + " It is not known"));
    meet("never", "commit");
    {
        ado::Transaction transaction(*connection);
        EXPECT_EQ(failureOf([&] { transaction.commit(); }), "08007?" + late);
    }
    meet("never", "login");
    EXPECT_TRUE(failureOf([&] { hospital.connect(); }).starts_with("HYT00"));
    hospital.server().clearFaults();
    EXPECT_EQ(readAgain(), "DELA CRUZ");
}

TEST_F(LostServer, AReadingStatementThatWaitsIsToldOfAndCanBeGivenUp) {
    connection->setPatience(20s);
    int told = 0;
    bool isOver = false;
    std::chrono::milliseconds enough = 400ms;
    connection->setWaiting([&](const ado::Connection::Wait& wait) {
        isOver = wait.isOver;
        told += wait.isOver ? 0 : 1;
        return wait.lasted < enough;
    });
    meet("slow:3000", "Select LastName");
    EXPECT_TRUE(failureOf([&] { readAgain(); }).starts_with("HY008 "));
    EXPECT_GT(told, 3);
    EXPECT_TRUE(isOver);
    EXPECT_EQ(readAgain(), "DELA CRUZ");
    meet("slow:800", "Update");
    connection->Execute(writing); // what writes is not given up
}

// A deadlock's victim has lost its transaction: what came behind it would be stored at once.
TEST_F(LostServer, NothingIsSentIntoATransactionThatTheServerGaveUp) {
    meet("error:1205,Deadlock.", "Update");
    {
        ado::Transaction transaction(*connection);
        EXPECT_EQ(failureOf([&] { connection->Execute(writing); }).substr(5), " Deadlock.");
        const std::string after = " The transaction cannot go on after a failure. Nothing of it is stored. (Deadlock.)";
        EXPECT_EQ(failureOf([&] { connection->Execute(writing); }).substr(5), after);
        EXPECT_EQ(failureOf([&] { transaction.commit(); }).substr(5), after);
    }
    EXPECT_EQ(timesReceived(writing), 1);
    EXPECT_EQ(timesReceived("commit"), 0);
}

TEST_F(LostServer, TellsWhyALoginFailsAndNeverThePassword) {
    const std::string refused = failureOf([&] { hospital.connect("wr{o}n=g"); });
    EXPECT_EQ(refused, "42000 Login failed for user 'desk'.");
    hospital.options.encryptionRequired = true; // which the server does not have
    const std::string plain = failureOf([&] { hospital.connect(); });
    EXPECT_TRUE(plain.starts_with("08001 The database server \"127.0.0.1,")) << plain;
    EXPECT_NE(plain.find("with encryption, as the settings require"), std::string::npos) << plain;
    hospital.options.driver = "No such driver";
    const std::string missing = failureOf([&] { hospital.connect(); });
    EXPECT_NE(missing.find("\"No such driver\" for database servers is not installed"), std::string::npos) << missing;
    for (const std::string& message : {refused, plain, missing})
        EXPECT_EQ(message.find(testserver::Options{}.password), std::string::npos);
}

} // namespace
} // namespace opd::tests
