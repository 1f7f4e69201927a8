#include "adapters/sqlite/care/shell.h"

#include "adapters/sqlite/engine/database.h"

#include <stdexcept>

namespace opd::adapters::sqlite {

namespace {

/// A word of a shell's own command, in which a backslash and a quote are written with a backslash before them.
std::string quoted(const std::string& word) {
    std::string text = "\"";
    for (const char character : word) {
        if (character == '"' || character == '\\')
            text += '\\';
        text += character;
    }
    return text + '"';
}

} // namespace

std::vector<std::string> shellCommand(const std::filesystem::path& folder, const std::filesystem::path& extension,
                                      ShellAccess access) {
    const std::filesystem::path file = databaseFile(folder);
    std::error_code unreadable;
    if (!std::filesystem::is_regular_file(file, unreadable))
        throw std::runtime_error("The folder \"" + folder.string() + "\" holds no hospital database that can be read.");
    std::vector<std::string> words{"sqlite3"};
    if (access == ShellAccess::Read)
        words.push_back("-readonly");
    // A desk that closes may hold the whole file for a moment.
    words.insert(words.end(), {"-cmd", ".timeout 5000", "-cmd", ".load " + quoted(extension.string()),
                               std::filesystem::absolute(file).string()});
    return words;
}

} // namespace opd::adapters::sqlite
