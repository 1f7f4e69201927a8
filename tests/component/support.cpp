#include "component/support.h"

#include <cstdlib>
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

} // namespace opd::tests
