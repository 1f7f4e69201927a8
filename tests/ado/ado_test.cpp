#include "support/recording_provider.h"

#include "ado/command.h"
#include "ado/connection.h"
#include "ado/recordset.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace opd::ado {
namespace {

using tests::RecordingProvider;

/// Serves the one data source it is made for, or every one.
struct NamedProvider final : Provider {
    explicit NamedProvider(std::string source) : served(std::move(source)) {}
    std::string served;
    int opened = 0;
    bool serves(const ConnectionString& settings) const override {
        return served.empty() || settings.dataSource() == served;
    }
    std::unique_ptr<Link> open(const ConnectionString& settings, const Link::OnWait& onWait) override {
        ++opened;
        return RecordingProvider{}.open(settings, onWait); // never used: the link only proves who opened it
    }
};

TEST(ConnectionString, IsReadByKeyInAnyLetterCase) {
    const ConnectionString settings{
        "Provider=X; data source =SRV\\A ;PASSWORD=a=b c;;nonsense;User ID=;Data Source=LAST"};
    EXPECT_EQ(settings.get("password"), "a=b c");
    EXPECT_EQ(settings.dataSource(), "LAST");
    EXPECT_EQ(settings.get("User ID"), "");
    EXPECT_EQ(settings.get("nonsense"), "");
    EXPECT_EQ(ConnectionString{"Data Source=SRV\\A ;x=y"}.dataSource(), "SRV\\A ") << "a value is taken as it stands";
}

TEST(Providers, TheFirstThatServesTheSourceOpensIt) {
    const auto folder = std::make_shared<NamedProvider>("/hospital");
    const auto server = std::make_shared<NamedProvider>("");
    const auto another = std::make_shared<NamedProvider>("/hospital");
    Providers providers;
    providers.add("folder", folder);
    EXPECT_THROW(Connection{providers}.Open("Data Source=SRV"), Error);
    providers.add("server", server);
    Connection{providers}.Open("Data Source=/hospital");
    Connection{providers}.Open("Data Source=SRV");
    providers.add("folder", another); // takes the place of the first of its kind
    Connection{providers}.Open("Data Source=/hospital");
    EXPECT_EQ(std::make_tuple(folder->opened, server->opened, another->opened), std::make_tuple(1, 1, 1));

    Providers::ofProcess().add("test", folder); // serve connections that are given no others
    Connection connection;
    connection.ConnectionString = "Data Source=/hospital";
    connection.Open();
    EXPECT_EQ(connection.State(), 1);
    EXPECT_EQ(folder->opened, 2);
}

TEST(Value, AsText) {
    const std::vector<std::pair<Value, const char*>> cases{{{}, ""},
                                                           {true, "True"},
                                                           {false, "False"},
                                                           {-7, "-7"},
                                                           {12.5, "12.5"},
                                                           {100.0, "100"},
                                                           {0.1, "0.1"},
                                                           {std::int64_t{9000000000}, "9000000000"},
                                                           {"Ñ ", "Ñ "},
                                                           {DateTime{1980, 3, 7}, "03/07/1980"},
                                                           {DateTime{1980, 3, 7, 14, 5, 0}, "03/07/1980 14:05:00"}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(value.asText(), expected);
    EXPECT_EQ(Value{-std::numeric_limits<double>::max()}.asText().size(), 310U);
}

TEST(Value, AsFlag) {
    for (const Value& value : std::vector<Value>{{}, false, 0, 0.0, "", "  ", "0", " 0 ", "false", DateTime{}})
        EXPECT_FALSE(value.asFlag()) << value.asText();
    for (const Value& value : std::vector<Value>{true, 1, -1, 0.5, "1", "Y", "True", "00", DateTime{1980, 3, 7}})
        EXPECT_TRUE(value.asFlag()) << value.asText();
}

TEST(Value, AsNumberAndAsDateRefuseWhatIsNone) {
    const std::vector<std::pair<Value, double>> numbers{{{}, 0},    {" ", 0},  {" 12.50 ", 12.5},
                                                        {"-3", -3}, {true, 1}, {7, 7}};
    for (const auto& [value, expected] : numbers)
        EXPECT_EQ(value.asNumber(), expected);
    for (const Value& value : std::vector<Value>{"12a", "1,000", "abc", "inf", "nan", DateTime{1980, 3, 7}})
        EXPECT_THROW(value.asNumber(), Error) << value.asText();
    EXPECT_EQ(Value{"03/07/1980"}.asDate(), (DateTime{1980, 3, 7}));
    EXPECT_EQ((Value{DateTime{1980, 3, 7, 1, 2, 3}}.asDate()), (DateTime{1980, 3, 7, 1, 2, 3}));
    for (const Value& value : std::vector<Value>{{}, "", "  "})
        EXPECT_FALSE(value.asDate().isSet());
    for (const Value& value : std::vector<Value>{"02/30/1980", "soon", 19800307, true})
        EXPECT_THROW(value.asDate(), Error) << value.asText();
}

struct Ado : testing::Test {
    std::shared_ptr<RecordingProvider> provider = std::make_shared<RecordingProvider>();
    Providers providers;
    Connection connection{providers};

    Ado() {
        providers.add("recording", provider);
        connection.Open("Data Source=any");
    }
};

TEST_F(Ado, ARecordsetWalksItsRowsAndNamesWhatItHasNot) {
    provider->answer("two", {{"Name", "Código"}, {{"ANA", 1}, {"BEN", {}}}, true});
    Recordset rows;
    EXPECT_EQ(rows.State(), 0);
    EXPECT_THROW(rows.EndOfFile(), Error);
    rows.CursorLocation = CursorLocation::Client;
    rows.Open("two", connection, CursorType::Dynamic, LockType::Optimistic);
    const Request& sent = provider->requests.back();
    EXPECT_TRUE(sent.throughRecordset);
    EXPECT_EQ(std::make_tuple(sent.cursorLocation, sent.cursorType, sent.lockType),
              std::make_tuple(CursorLocation::Client, CursorType::Dynamic, LockType::Optimistic));
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_FALSE(rows.BOF());
    EXPECT_EQ(rows.Fields("NAME").asText(), "ANA");
    EXPECT_EQ(rows.Fields("CÓDIGO").asNumber(), 1);
    try {
        rows.Fields("Age");
        FAIL() << "a column that is not there was read";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 3265);
        EXPECT_NE(std::string{error.what()}.find("Age"), std::string::npos);
    }
    rows.MoveNext();
    EXPECT_TRUE(rows.Fields("Código").isNull());
    rows.MoveNext();
    EXPECT_TRUE(rows.EndOfFile());
    EXPECT_THROW(rows.Fields("Name"), Error);
    rows.Open("two", connection);
    EXPECT_EQ(rows.Fields("Name").asText(), "ANA") << "opened anew it stands on the first row";
    rows.Close();
    EXPECT_THROW(rows.RecordCount(), Error);

    provider->answer("none", {{"Name"}, {}, true});
    provider->answer("uncounted", {{"Name"}, {{"ANA"}}, false});
    const Recordset none = connection.Execute("none");
    EXPECT_TRUE(none.BOF() && none.EndOfFile());
    EXPECT_EQ(none.RecordCount(), 0);
    EXPECT_THROW(none.Fields("Name"), Error);
    EXPECT_EQ(connection.Execute("uncounted").RecordCount(), -1);
}

TEST_F(Ado, ATransactionRollsBackUnlessItWasCommitted) {
    {
        Transaction transaction{connection};
        connection.Execute("a");
        EXPECT_TRUE(connection.inTransaction());
        transaction.commit();
    }
    EXPECT_EQ(provider->log, "begin\na\ncommit\n");
    provider->log.clear();
    provider->failOn("bad", "refused");
    EXPECT_THROW(
        {
            Transaction transaction{connection};
            connection.Execute("bad");
            transaction.commit();
        },
        Error);
    EXPECT_EQ(provider->log, "begin\nbad\nrollback\n");
    EXPECT_FALSE(connection.inTransaction());
    {
        const Transaction lost{connection};
        connection.Close();
    }
    EXPECT_FALSE(connection.inTransaction());
}

TEST(Columns, AreFoundInAnyLetterCaseTheFirstOfAName) {
    const Columns columns{"IdNum", "HospNum", "idnum", "", "A"};
    const std::pair<const char*, std::optional<std::size_t>> wanted[] = {
        {"IDNUM", 0},        {"hospnum", 1}, {"", 3}, {"a", 4}, {"HospNam", std::nullopt}, {"HospNumb", std::nullopt},
        {"AB", std::nullopt}};
    for (const auto& [name, place] : wanted)
        EXPECT_EQ(columns.find(name), place) << name;
    EXPECT_EQ(Columns{}.find(""), std::nullopt);
    EXPECT_TRUE(Columns{} == Columns(std::vector<std::string>{}) && columns == Columns(columns.names()));
}

TEST(Statement, TakesNoValueThatWouldLeaveItsQuotes) {
    for (const std::string& value : {std::string{"O'NEIL"}, std::string{"A\0B", 3}, std::string{"\0", 1}})
        EXPECT_THROW(Statement("Select '").value(value), Error) << value.size();
    EXPECT_EQ(Statement("Select '").value("A\\--/*").text("'").str(), "Select 'A\\--/*'");
}

TEST_F(Ado, TheTraceIsToldEveryStatementBeforeItIsSent) {
    std::string trace;
    connection.setTrace([&](const std::string& line) { trace += line + "\n"; });
    provider->failOn("bad", "refused");
    Command command{connection};
    command.CommandText = "db..draw";
    command.addOutput("@HospNum", 8);
    command.addOutput("@IdNum", 10);
    EXPECT_THROW(command.output(0), std::out_of_range);
    command.Execute();
    EXPECT_EQ(command.output(1).asText(), "26A0000007");
    connection.BeginTrans();
    EXPECT_THROW(connection.Execute("bad"), Error);
    connection.RollbackTrans();
    connection.setTrace({});
    connection.Execute("silent");
    EXPECT_EQ(trace, "{call db..draw(?,?)}\nbegin\nbad\nrollback\n");
}

TEST_F(Ado, AClosedConnectionSaysSo) {
    EXPECT_THROW(connection.Open("Data Source=any"), Error) << "open already";
    connection.Close();
    connection.Close();
    EXPECT_EQ(connection.State(), 0);
    Recordset rows;
    EXPECT_THROW(connection.Execute("x"), Error);
    EXPECT_THROW(connection.BeginTrans(), Error);
    EXPECT_FALSE(connection.inTransaction());
    EXPECT_THROW(rows.Open("x", connection), Error);
    EXPECT_TRUE(provider->log.empty());
    connection.Open("Data Source=any");
    connection.Execute("x");
    EXPECT_EQ(provider->log, "x\n");
}

} // namespace
} // namespace opd::ado
