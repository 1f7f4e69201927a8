#include "adapters/sqlite/care/shell.h"
#include "base/os/library.h"
#include "base/os/trust.h"
#include "host/commands.h"
#include "host/program_folder.h"

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

namespace opd::host {

namespace {

/// The shell takes the place of this program: its input, output and status are the shell's.
[[noreturn]] void become(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execvp(arguments.front(), arguments.data());
    if (errno == ENOENT)
        throw std::runtime_error("The SQLite shell (sqlite3) is not installed on this machine.");
    throw std::runtime_error("The SQLite shell (sqlite3) cannot be started: " + std::generic_category().message(errno) +
                             ".");
}

} // namespace

void sql(const SqlOptions& options) {
    using adapters::sqlite::ShellAccess;
    std::vector<std::string> words = adapters::sqlite::shellCommand(
        options.folder, os::trustedLibrary(programFolder() / os::libraryFileName(adapters::sqlite::extensionLibrary)),
        options.writable ? ShellAccess::Write : ShellAccess::Read);
    words.insert(words.end(), options.statements.begin(), options.statements.end());
    become(std::move(words));
}

} // namespace opd::host
