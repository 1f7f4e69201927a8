// What the program puts in order stands as the engine would have put it.
#include "adapters/sqlite/row_order.h"

#include "adapters/sqlite/engine/database.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <random>

using namespace opd;
using namespace opd::adapters::sqlite;

namespace {

/// Names that differ in little: in case, in accents, in blanks behind them, in being there at all.
std::vector<ado::Value> names() {
    return {ado::Value{}, "", " ", "PENA", "Peña", "PEÑA ", "pena ", "PENA A", "PEN", "PEN-A", "PENÃ", "ñ", "Z", "z  "};
}

ado::ResultSet answerOf(const Database& database, const char* sql) {
    ado::ResultSet answer;
    for (Query query(database, sql); query.next();)
        answer.rows.push_back({query.value(0), query.value(1), query.value(2)});
    return answer;
}

TEST(RowOrder, IsThatOfTheEngine) {
    const tests::TemporaryFolder folder;
    const FixedClock clock{{2026, 11, 24}};
    Database database(folder.path() / "names.db", Database::Mode::Create, clock);
    database.run("CREATE TABLE names (Name TEXT COLLATE OPD, Born DATE, Place INTEGER)");
    std::mt19937 random(1);
    for (int place = 0; place < 400; ++place) {
        Query insert(database, "INSERT INTO names VALUES (?, ?, ?)");
        insert.bind(1, names()[random() % names().size()]);
        insert.bind(2, DateTime{1980 + static_cast<int>(random() % 2), 1 + static_cast<int>(random() % 12), 7,
                                static_cast<int>(random() % 2)});
        insert.bind(3, place);
        insert.next();
    }
    const ado::ResultSet expected = answerOf(database, "SELECT * FROM names ORDER BY Name, Born, Place");
    ado::ResultSet answer = answerOf(database, "SELECT * FROM names ORDER BY Place");
    orderRows(answer, {0, 1});
    EXPECT_EQ(answer.rows, expected.rows);
}

} // namespace
