#include "prove/table.h"

#include <fmt/core.h>

#include <cctype>
#include <cstdio>
#include <sstream>

namespace opd::prove {

namespace {

/// "SearchesFindWhom/server" as "Searches find whom".
std::string inWords(const std::string& name) {
    std::string words;
    for (const char c : name.substr(0, name.find('/'))) {
        const bool begins = std::isupper(static_cast<unsigned char>(c)) != 0;
        words += begins && !words.empty() ? std::string{" "} : std::string{};
        words += static_cast<char>(begins && !words.empty() ? std::tolower(c) : c);
    }
    return words;
}

void printIndented(const char* message) {
    std::istringstream lines(message);
    for (std::string line; std::getline(lines, line);)
        fmt::print("        {}\n", line);
}

} // namespace

void Table::OnTestProgramStart(const testing::UnitTest&) {
    fmt::print("{:<9}{:>9}  {}\n", "outcome", "seconds", "case");
}

void Table::OnTestEnd(const testing::TestInfo& test) {
    const testing::TestResult& result = *test.result();
    fmt::print("{:<9}{:>9.2f}  {}\n",
               result.Passed()    ? "passed"
               : result.Skipped() ? "skipped"
                                  : "FAILED",
               static_cast<double>(result.elapsed_time()) / 1000, inWords(test.name()));
    for (int part = 0; part < result.total_part_count(); ++part)
        if (!result.GetTestPartResult(part).passed())
            printIndented(result.GetTestPartResult(part).message());
    std::fflush(stdout);
}

} // namespace opd::prove
