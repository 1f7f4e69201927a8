#include "server/statement_log.h"

#include "base/text/text.h"

#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace opd::testserver {

StatementLog::StatementLog(const std::filesystem::path& file) {
    if (file.empty())
        return;
    m_file = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (m_file < 0 || ::fchmod(m_file, S_IRUSR | S_IWUSR) != 0)
        throw std::runtime_error("Cannot write \"" + file.string() + "\": " + std::generic_category().message(errno) +
                                 ".");
}

StatementLog::~StatementLog() {
    if (m_file >= 0)
        ::close(m_file);
}

void StatementLog::add(int connection, const std::string& text) {
    const std::string oneLine = text::replaced(text::replaced(text, "\\", "\\\\"), "\n", "\\n");
    const std::string line = std::to_string(connection) + "\t" + oneLine + "\n";
    const std::lock_guard guard(m_mutex);
    m_received.push_back({connection, text});
    if (m_file >= 0 && ::write(m_file, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        throw std::runtime_error("The log of the statements cannot be written.");
}

std::vector<Received> StatementLog::all() const {
    const std::lock_guard guard(m_mutex);
    return m_received;
}

void StatementLog::clear() {
    const std::lock_guard guard(m_mutex);
    m_received.clear();
}

} // namespace opd::testserver
