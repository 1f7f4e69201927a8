#pragma once

#include "base/clock/date_time.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace opd::adapters::sqlite {

/// What a new demonstration hospital is to be.
struct DatabaseOptions {
    int patients = 500;
    /// The moment from which births, visits and schedules are made; the machine's without it.
    std::optional<DateTime> now = {};
    unsigned seed = 1;
    std::string clientCode;
    std::string hospitalName = "SAN ROQUE GENERAL HOSPITAL";
    std::string address = "128 MABINI STREET, MANILA";
};

/// Makes a folder with a hospital database full of synthetic patients. The same number of patients and the same seed
/// give the same rows on the same day. `progress` is told from time to time how many patients are done.
///
/// The file gets its name when it is whole, so that a creation that is interrupted leaves no database. Throws
/// std::runtime_error when the folder is not empty, and ado::Error or std::filesystem::filesystem_error when it cannot
/// be written.
void createDatabase(const std::filesystem::path& folder, const DatabaseOptions& options,
                    const std::function<void(int done, int total)>& progress);

} // namespace opd::adapters::sqlite
