#include "adapters/sqlite/engine/writer_queue.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace opd::adapters::sqlite {

namespace {

using namespace std::chrono_literals;

/// The file begins with the number of the last place that was given out. The byte at each place's number is locked by
/// who stands there, and this one by who takes a place.
constexpr std::int64_t counter = 0;
constexpr std::int64_t firstPlace = sizeof(std::int64_t);

/// Whoever is next asks often, so that the database is not idle for long. The others sleep for less than those before
/// them take at the least: seventy who all ask a thousand times a second would keep the processors from the one who
/// writes.
constexpr auto napOfNext = 50us;
constexpr auto napForEachBefore = 150us;
constexpr auto longestNap = 8ms;

struct flock range(short kind, std::int64_t from, std::int64_t length) {
    struct flock wanted {};
    wanted.l_type = kind;
    wanted.l_whence = SEEK_SET;
    wanted.l_start = from;
    wanted.l_len = length;
    return wanted;
}

bool lock(int file, int command, short kind, std::int64_t byte) {
    struct flock wanted = range(kind, byte, 1);
    return fcntl(file, command, &wanted) == 0;
}

} // namespace

WriterQueue::~WriterQueue() {
    if (m_file >= 0)
        close(m_file);
}

void WriterQueue::open() {
    m_file = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    // Whoever may use the database may stand in the queue.
    struct stat database {};
    if (m_file >= 0 && stat(std::filesystem::path{m_path}.replace_extension().c_str(), &database) == 0)
        std::ignore = fchmod(m_file, database.st_mode & 0666);
}

void WriterQueue::takePlace() {
    if (m_file < 0)
        open();
    if (m_file < 0 || !lock(m_file, F_OFD_SETLKW, F_WRLCK, counter))
        return;
    std::int64_t last = 0;
    if (pread(m_file, &last, sizeof last, counter) != sizeof last)
        last = firstPlace;
    const std::int64_t place = last + 1;
    if (lock(m_file, F_OFD_SETLK, F_WRLCK, place) && pwrite(m_file, &place, sizeof place, counter) == sizeof place)
        m_place = place;
    lock(m_file, F_OFD_SETLK, F_UNLCK, counter);
}

std::int64_t WriterQueue::distance() const {
    struct flock before = range(F_WRLCK, firstPlace, m_place - firstPlace);
    const bool isFree = fcntl(m_file, F_OFD_GETLK, &before) != 0 || before.l_type == F_UNLCK;
    return isFree ? 0 : m_place - before.l_start;
}

void WriterQueue::enter(const std::function<bool()>& goesOn) {
    if (m_place != 0)
        return;
    takePlace();
    if (m_place == 0)
        return;
    for (std::int64_t before = distance(); before > 0 && goesOn(); before = distance())
        std::this_thread::sleep_for(
            std::min<std::chrono::microseconds>(before == 1 ? napOfNext : napForEachBefore * (before - 1), longestNap));
}

void WriterQueue::leave() {
    if (m_place != 0)
        lock(m_file, F_OFD_SETLK, F_UNLCK, m_place);
    m_place = 0;
}

} // namespace opd::adapters::sqlite
