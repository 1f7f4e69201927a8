#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

namespace opd::bench {

enum class Time { Elapsed, OfProcessor };

/// The module's way and the bare one to the same result. Each is told the how-manieth turn it is, and answers how many
/// rows it read.
struct Pair {
    using Way = std::function<std::size_t(std::size_t turn)>;

    Way module;
    Way bare; ///< empty where there is none

    /// True when both read the same rows of the same hospital, so that a bare way that finds less is noticed.
    bool sameRows = true;

    std::function<void(std::size_t turn)> before = {}; ///< what makes each turn ready, and is not measured
};

/// Runs both ways in turns, each of them first every other time, and reports medians and 99th percentiles of both in
/// microseconds. The two see the same load of the machine, so their ratio means something also where it works for
/// others.
void measure(benchmark::State& state, const Pair& pair, Time time = Time::Elapsed);

/// How a row of the table is run: most for a time, those that take long or change the hospital for a number of turns.
struct Plan {
    int turns = 0;
};

/// Registers what is measured under "ROW/HOSPITAL", for each of the hospitals named.
void add(const std::string& row, const std::vector<std::string>& hospitals,
         void (*body)(benchmark::State&, const std::string& hospital), const Plan& plan = {});

/// The hospitals by size that OPD_BENCH_SIZES names, the smallest first.
const std::vector<std::string>& sizes();

/// What each file of rows adds.
void addSearches();
void addOpenings();
void addRegistration();
void addLookups();

} // namespace opd::bench
