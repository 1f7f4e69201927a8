#include "component/trace_file.h"

#include "base/text/text.h"

#include <utility>

namespace opd {

TraceFile::TraceFile(const std::filesystem::path& file, std::function<void(const std::string&)> tell)
    : m_tell(std::move(tell)), m_file(file) {}

void TraceFile::write(const std::string& statement) noexcept {
    try {
        if (const std::string reason = append(statement); !reason.empty())
            m_tell("The trace is not complete. " + reason);
    } catch (...) { // not even room to tell it
    }
}

/// The reason to tell, if there is one.
std::string TraceFile::append(const std::string& statement) {
    const std::string line = text::replaced(text::replaced(statement, "\r", "\\r"), "\n", "\\n") + '\n';
    const std::lock_guard<std::mutex> lock(m_mutex);
    try {
        m_file.append(line);
        return {};
    } catch (const std::exception& failure) {
        return std::exchange(m_told, true) ? std::string{} : failure.what();
    }
}

} // namespace opd
