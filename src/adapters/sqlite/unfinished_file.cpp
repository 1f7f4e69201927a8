#include "adapters/sqlite/unfinished_file.h"

#include <utility>

namespace opd::adapters::sqlite {

namespace {

void removeJournals(const std::filesystem::path& file) {
    std::error_code ignored;
    for (const char* suffix : {"-wal", "-shm", "-journal"})
        std::filesystem::remove(file.string() + suffix, ignored);
}

} // namespace

UnfinishedFile::UnfinishedFile(std::filesystem::path place)
    : m_place(std::move(place)), m_file(m_place.string() + unfinishedSuffix), m_held(m_file) {
    removeJournals(m_file);
}

UnfinishedFile::~UnfinishedFile() {
    removeJournals(m_file);
    std::error_code ignored;
    std::filesystem::remove(m_file, ignored);
}

void UnfinishedFile::finish() const {
    removeJournals(m_place); // of a file that was there before; the engine would read them as this one's
    std::filesystem::rename(m_file, m_place);
}

} // namespace opd::adapters::sqlite
