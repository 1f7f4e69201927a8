#include "adapters/sqlite/engine/writer_queue.h"

#include "base/os/safe_file.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sys/mman.h>
#include <thread>
#include <unistd.h>

namespace opd::adapters::sqlite {

namespace {

using namespace std::chrono_literals;

/// The file is one number, that of the last place that was given out. The byte at each place's number is locked by who
/// stands there; it lies behind the number, and need not be there.
using Counter = std::atomic<std::int64_t>;
static_assert(Counter::is_always_lock_free, "several programs count in the same memory");
constexpr std::int64_t firstPlace = sizeof(Counter);

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
    if (m_counter != nullptr)
        munmap(m_counter, sizeof(Counter));
    if (m_file >= 0)
        close(m_file);
}

void WriterQueue::open() {
    m_file = ::open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    // Whoever may use the database may stand in the queue, also when an administrator was there first.
    if (m_file >= 0)
        os::giveToUsersOf(std::filesystem::path{m_path}.replace_extension(), m_path);
}

// The room on the disk is asked for first: memory that stands for a file without room ends the program.
bool WriterQueue::mapCounter() {
    if (m_file < 0 || posix_fallocate(m_file, 0, sizeof(Counter)) != 0)
        return false;
    void* const mapped = mmap(nullptr, sizeof(Counter), PROT_READ | PROT_WRITE, MAP_SHARED, m_file, 0);
    m_counter = mapped == MAP_FAILED ? nullptr : static_cast<Counter*>(mapped);
    return m_counter != nullptr;
}

void WriterQueue::takePlace() {
    if (m_file < 0)
        open();
    if (m_counter == nullptr && !mapCounter())
        return;
    const std::int64_t place = firstPlace + m_counter->fetch_add(1) + 1;
    if (lock(m_file, F_OFD_SETLK, F_WRLCK, place))
        m_place = place;
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
