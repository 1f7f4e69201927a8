#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>
#include <string_view>

namespace opd::tests {

/// Runs a statement on a hospital's file as another program would, past everything that this one checks.
inline void runByOtherProgram(const std::filesystem::path& hospital, const char* statement) {
    sqlite3* file = nullptr;
    ASSERT_EQ(sqlite3_open(hospital.c_str(), &file), SQLITE_OK);
    const auto compare = [](void*, int leftSize, const void* left, int rightSize, const void* right) {
        return std::string_view(static_cast<const char*>(left), static_cast<std::size_t>(leftSize))
            .compare(std::string_view(static_cast<const char*>(right), static_cast<std::size_t>(rightSize)));
    };
    sqlite3_create_collation(file, "OPD", SQLITE_UTF8, nullptr, compare);
    EXPECT_EQ(sqlite3_exec(file, statement, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
    sqlite3_close(file);
}

} // namespace opd::tests
