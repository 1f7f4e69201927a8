#include "host/commands.h"

#include <fmt/core.h>

#include <cstdio>
#include <unistd.h>

namespace opd::host {

namespace {

void showProgress(int done, int total) {
    const int percent = total > 0 ? static_cast<int>(100LL * done / total) : 100;
    fmt::print(stderr, "\rMaking the hospital: {} of {} ({} %)", done, total, percent);
    std::fflush(stderr);
}

} // namespace

void createHospital(const std::filesystem::path& folder, const adapters::sqlite::DatabaseOptions& options) {
    refuseSemicolon("folder", folder.string()); // no desk could be told of it
    const bool onTerminal = ::isatty(STDERR_FILENO) == 1;
    adapters::sqlite::createDatabase(folder, options, [&](int done, int total) {
        if (onTerminal)
            showProgress(done, total);
    });
    if (onTerminal)
        fmt::print(stderr, "\n");
}

} // namespace opd::host
