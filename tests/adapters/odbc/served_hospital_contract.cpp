// A hospital behind a database server keeps the contract of a hospital's database, driver and wire between them.
#include "adapters/odbc/served_hospital.h"
#include "contract/contract.h"

namespace opd::tests {

INSTANTIATE_TEST_SUITE_P(Served, Contract,
                         testing::Values(Provided{"served", [] { return std::make_unique<ServedHospital>(); }}),
                         [](const auto& provided) { return std::string{provided.param.name}; });

TEST(ServedHospital, GivesEveryTypeOfAServersColumnsAsAValueOfItsKind) {
    ServedHospital hospital;
    const ado::Recordset answer = hospital.connect()->Execute(sql(
        "select cast(1 as bit) as a, 7 as b, cast(12345678901 as bigint) as c, cast('-12.50' as decimal(18,2)) as d, "
        "cast('-12.5' as money) as e, cast('1.5' as float) as f, cast('1980-03-07' as date) as g, "
        "cast('2026-11-25 10:11:12' as datetime) as h, cast('1700-01-31' as datetime2(0)) as i, "
        "cast('Ñandú ' as varchar(20)) as j, cast(N'漢' as nvarchar(max)) as k, cast(null as int) as l"));
    const DateTime moment{2026, 11, 25, 10, 11, 12};
    const std::vector<ado::Value> expected{true,
                                           7,
                                           std::int64_t{12345678901},
                                           -12.5,
                                           -12.5,
                                           1.5,
                                           DateTime{1980, 3, 7},
                                           moment,
                                           DateTime{1700, 1, 31},
                                           "Ñandú ",
                                           "漢",
                                           {}};
    EXPECT_EQ(answer.all().rows.at(0), expected);
}

} // namespace opd::tests
