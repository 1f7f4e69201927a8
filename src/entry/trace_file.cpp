#include "entry/trace_file.h"

#include "platform/settings/safe_file.h"
#include "platform/text/text.h"

#include <stdexcept>

namespace opd {

TraceFile::TraceFile(const std::filesystem::path& file) : m_file(file) {
    settings::makePrivate(file);
    m_out.open(file, std::ios::binary | std::ios::app);
}

void TraceFile::write(const std::string& statement) {
    m_out << text::replaced(text::replaced(statement, "\r", "\\r"), "\n", "\\n") << '\n' << std::flush;
    if (!m_out)
        throw std::runtime_error("Cannot write the trace \"" + m_file.string() + "\".");
}

} // namespace opd
