#pragma once

#include "contract/hospital.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <unistd.h>

namespace opd::tests {

/// A desk in a process of its own that draws hospital and OPD numbers in turn and notes each in the file, a line each;
/// for ever when it is told a negative count. It ends with 0 when all were drawn.
inline pid_t startDrawing(Hospital& hospital, const std::filesystem::path& notes, int count) {
    const pid_t desk = ::fork();
    if (desk != 0)
        return desk;
    std::ofstream file(notes);
    try {
        const auto connection = hospital.connect();
        for (int n = 0; n != count; ++n)
            file << (n % 2 == 0 ? "H" + newHospNum(*connection) : "V" + newOpdNumber(*connection)) << std::endl;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "A desk that draws numbers: %s\n", failure.what());
        ::_exit(1);
    }
    ::_exit(file ? 0 : 2);
}

/// What desks have noted in the files of a folder, each behind its "H" or "V". Fails for a number that came twice.
inline std::set<std::string> drawnNumbers(const std::filesystem::path& folder) {
    std::set<std::string> numbers;
    for (const auto& notes : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(notes.path());
        for (std::string number; std::getline(file, number);)
            EXPECT_TRUE(numbers.insert(number).second) << number << " was given twice";
    }
    return numbers;
}

} // namespace opd::tests
