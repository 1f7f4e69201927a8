#include "codesearch/listing_window.h"
#include "hospital.h"

#include <benchmark/benchmark.h>

namespace opd::bench {

namespace {

constexpr int patients = 500;
constexpr int towns = 0;

Hospital& hospital() {
    static Hospital demonstration(patients);
    return demonstration;
}

codesearch::ListingWindow listingOf(BriefDesktop& desktop, int number) {
    const codesearch::Listing& listing = *codesearch::findListing(number);
    return {desktop, listing, codesearch::everyRow(hospital().connection(), listing, ""), ""};
}

/// From the key to the list of every town: query, rows, window model.
void openLargestListing(benchmark::State& state) {
    BriefDesktop desktop;
    for (auto _ : state) {
        codesearch::ListingWindow window = listingOf(desktop, towns);
        benchmark::DoNotOptimize(window.pick("", ""));
    }
}
BENCHMARK(openLargestListing)->Unit(benchmark::kMillisecond);

/// One keystroke in the search box: narrowing every town to those that hold the text.
void filterLargestListing(benchmark::State& state) {
    BriefDesktop desktop;
    codesearch::ListingWindow window = listingOf(desktop, towns);
    desktop.work = [&](ui::Window& shown) {
        auto& box = static_cast<ui::TextBox&>(*shown.find("txtSearch"));
        bool narrow = false;
        for (auto _ : state) {
            narrow = !narrow;
            shown.edited(box, narrow ? "A" : "AN");
        }
    };
    window.pick("", "");
}
BENCHMARK(filterLargestListing)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace opd::bench
