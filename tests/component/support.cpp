#include "component/support.h"

#include "base/os/library.h"
#include "com/server.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <regex>
#include <sys/wait.h>

namespace opd::tests {

Outcome runDesk(const std::vector<std::string>& arguments, const std::string& input) {
    const TemporaryFolder folder;
    writeFile(folder / "in", input);
    const auto quoted = [](const std::string& word) {
        return "'" + std::regex_replace(word, std::regex("'"), "'\\''") + "'";
    };
    std::string command = quoted(OPD_DESK);
    for (const std::string& argument : arguments)
        command += " " + quoted(argument);
    command += " <" + quoted((folder / "in").string()) + " >" + quoted((folder / "out").string()) + " 2>" +
               quoted((folder / "err").string());
    const int result = std::system(command.c_str());
    return {WIFEXITED(result) ? WEXITSTATUS(result) : -1, contentOf(folder / "out"), contentOf(folder / "err")};
}

std::filesystem::path componentLibrary() {
    return OPD_COMPONENT;
}

std::filesystem::path codeSearchLibrary() {
    return OPD_CODE_SEARCH;
}

std::filesystem::path otherLibrary() {
    return OPD_OTHER_LIBRARY;
}

void registerClassesOf(const std::filesystem::path& library) {
    const os::Library opened{library};
    ASSERT_EQ(opened.function<com::RegisterServerExport>(com::exportedNames.registerServer)(), com::ok);
}

} // namespace opd::tests
