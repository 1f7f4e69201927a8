#include "entry/support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>

namespace opd::tests {

Variable::Variable(const char* name, const std::string& value) : m_name(name) {
    ::setenv(name, value.c_str(), 1);
}

Variable::~Variable() {
    ::unsetenv(m_name);
}

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void writeFile(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

unsigned modeOf(const std::filesystem::path& file) {
    struct stat found {};
    return ::stat(file.c_str(), &found) == 0 ? found.st_mode & 07777U : 0U;
}

Outcome runDesk(const std::vector<std::string>& arguments, const std::string& input) {
    const TemporaryFolder folder;
    writeFile(folder / "in", input);
    const auto quoted = [](const std::string& word) { return "'" + word + "'"; };
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

std::filesystem::path platformLibrary() {
    return OPD_PLATFORM;
}

} // namespace opd::tests
