#include "hospital.h"

#include "ado/recordset.h"
#include "search/statements.h"

#include <benchmark/benchmark.h>
#include <map>

namespace opd::bench {

namespace {

Hospital& hospitalOf(int patients) {
    static std::map<int, std::unique_ptr<Hospital>> made;
    std::unique_ptr<Hospital>& hospital = made[patients];
    if (!hospital)
        hospital = std::make_unique<Hospital>(patients);
    return *hospital;
}

void measure(benchmark::State& state, const ado::Statement& statement) {
    ado::Connection& connection = hospitalOf(static_cast<int>(state.range(0))).connection();
    std::size_t rows = 0;
    for (auto _ : state)
        rows = connection.Execute(statement).all().rows.size();
    state.counters["rows"] = static_cast<double>(rows);
}

void searchByNameAndBirthDate(benchmark::State& state) {
    measure(state, search::nameSearch("DELA CRUZ", "M", "1980.03.07"));
}
BENCHMARK(searchByNameAndBirthDate)->Arg(500)->Arg(200000)->Unit(benchmark::kMicrosecond);

void searchByCommonName(benchmark::State& state) {
    measure(state, search::nameSearch("DELA CRUZ", "M", ""));
}
BENCHMARK(searchByCommonName)->Arg(500)->Arg(200000)->Unit(benchmark::kMicrosecond);

void searchByCard(benchmark::State& state) {
    measure(state, search::cardSearch("00000009"));
}
BENCHMARK(searchByCard)->Arg(500)->Arg(200000)->Unit(benchmark::kMicrosecond);

void searchByNameAndFirstName(benchmark::State& state) {
    measure(state, search::nameSearch("DELA CRUZ, MARIA", "F", ""));
}
BENCHMARK(searchByNameAndFirstName)->Arg(500)->Arg(200000)->Unit(benchmark::kMicrosecond);

void searchAgainWithoutSex(benchmark::State& state) {
    measure(state, search::subSearch("DELA CRUZ", "F", "1980.03.07"));
}
BENCHMARK(searchAgainWithoutSex)->Arg(500)->Arg(200000)->Unit(benchmark::kMicrosecond);

void searchByMemberNumber(benchmark::State& state) {
    measure(state, search::memberSearch("12-345678901-2", search::MemberNumber::PhilHealth));
}
BENCHMARK(searchByMemberNumber)->Arg(500)->Arg(200000)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace opd::bench
