#include "pair.h"

#include "workplace.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <sstream>

namespace opd::bench {

namespace {

bool isQuick() {
    return std::getenv("OPD_BENCH_QUICK") != nullptr;
}

double secondsOf(Time time) {
    timespec moment{};
    clock_gettime(time == Time::Elapsed ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &moment);
    return static_cast<double>(moment.tv_sec) + static_cast<double>(moment.tv_nsec) / 1e9;
}

/// What one way took, turn by turn.
class Taken {
  public:
    Taken(const Pair::Way& way, Time time) : m_way(way), m_time(time) {}

    std::size_t run(std::size_t turn) {
        const double begun = secondsOf(m_time);
        const std::size_t rows = m_way(turn);
        m_seconds.push_back(secondsOf(m_time) - begun);
        return rows;
    }

    double last() const { return m_seconds.back(); }

    void report(benchmark::State& state, const std::string& name) {
        std::sort(m_seconds.begin(), m_seconds.end());
        const auto at = [&](double share) {
            return m_seconds[static_cast<std::size_t>(static_cast<double>(m_seconds.size() - 1) * share)] * 1e6;
        };
        state.counters[name + "_p50"] = at(0.5);
        state.counters[name + "_p99"] = at(0.99);
    }

  private:
    const Pair::Way& m_way;
    Time m_time;
    std::vector<double> m_seconds;
};

} // namespace

void measure(benchmark::State& state, const Pair& pair, Time time) {
    Taken module(pair.module, time);
    Taken bare(pair.bare, time);
    std::size_t turn = 0;
    std::size_t rows = 0;
    for (auto _ : state) {
        std::size_t bareRows = 0;
        if (pair.before)
            pair.before(turn);
        const bool bareFirst = turn % 2 == 1;
        if (pair.bare && bareFirst)
            bareRows = bare.run(turn);
        rows = module.run(turn);
        if (pair.bare && !bareFirst)
            bareRows = bare.run(turn);
        if (pair.bare && pair.sameRows && rows != bareRows) {
            std::string fault = "read " + std::to_string(rows);
            fault += " rows, bare " + std::to_string(bareRows);
            state.SkipWithError(fault.c_str());
            return;
        }
        state.SetIterationTime(module.last());
        ++turn;
    }
    module.report(state, "module");
    if (pair.bare)
        bare.report(state, "bare");
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["turns"] = static_cast<double>(turn);
}

void add(const std::string& row, const std::vector<std::string>& hospitals,
         void (*body)(benchmark::State&, const std::string& hospital), const Plan& plan) {
    for (const std::string& name : hospitals) {
        std::string label = row;
        label.append("/").append(name);
        auto* const measured = benchmark::RegisterBenchmark(label.c_str(), body, name);
        measured->UseManualTime()->Unit(benchmark::kMicrosecond);
        if (plan.turns > 0)
            measured->Iterations(isQuick() ? std::max(5, plan.turns / 4) : plan.turns);
        else
            measured->MinTime(isQuick() ? 0.05 : 0.25);
    }
}

const std::vector<std::string>& sizes() {
    static const std::vector<std::string> named = [] {
        const char* const all = std::getenv("OPD_BENCH_SIZES");
        std::istringstream words(all != nullptr ? all : "10000");
        return std::vector<std::string>(std::istream_iterator<std::string>(words), {});
    }();
    return named;
}

} // namespace opd::bench
