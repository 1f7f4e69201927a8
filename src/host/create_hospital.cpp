#include "host/commands.h"

#include <fmt/core.h>

#include <cstdio>
#include <stdexcept>
#include <unistd.h>

namespace opd::host {

namespace {

void refuseUsedFolder(const std::filesystem::path& folder) {
    std::error_code error;
    const auto status = std::filesystem::status(folder, error);
    if (!std::filesystem::exists(status))
        return;
    if (!std::filesystem::is_directory(status))
        throw std::runtime_error(fmt::format("\"{}\" is no folder.", folder.string()));
    if (!std::filesystem::is_empty(folder, error) || error)
        throw std::runtime_error(fmt::format("The folder \"{}\" is not empty.", folder.string()));
}

void showProgress(int done, int total) {
    const int percent = total > 0 ? static_cast<int>(100LL * done / total) : 100;
    fmt::print(stderr, "\rMaking the hospital: {} of {} ({} %)", done, total, percent);
    std::fflush(stderr);
}

} // namespace

void createHospital(const std::filesystem::path& folder, const DatabaseOptions& options) {
    refuseUsedFolder(folder);
    const bool onTerminal = ::isatty(STDERR_FILENO) == 1;
    createDatabase(folder, options, [&](int done, int total) {
        if (onTerminal)
            showProgress(done, total);
    });
    if (onTerminal)
        fmt::print(stderr, "\n");
}

} // namespace opd::host
