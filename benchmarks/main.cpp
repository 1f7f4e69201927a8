#include "pair.h"

#include <exception>
#include <iostream>

/// Measures what a clerk waits for, without windows; `./bench` starts it. Takes the options of Google Benchmark.
int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        opd::bench::addSearches();
        opd::bench::addOpenings();
        opd::bench::addRegistration();
        opd::bench::addLookups();
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& failure) {
        std::cerr << "opd-bench: " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
