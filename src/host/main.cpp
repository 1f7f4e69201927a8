#include "host/command_line.h"

#include <fmt/core.h>

#include <csignal>
#include <cstdio>

using namespace opd;

namespace {

int fail(std::string message) {
    for (char& character : message)
        if (character == '\n' || character == '\r')
            character = ' ';
    fmt::print(stderr, "opd-desk: {}\n", message);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow fails to be written, and ends no registration
    try {
        host::CommandLine line;
        try {
            line.app.parse(argc, argv);
        } catch (const CLI::ParseError& error) {
            if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
                return line.app.exit(error); // help or version, on standard output
            return fail(error.what());
        }
        line.refuseUnknownWords();
        line.command();
        return 0;
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
