#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>

namespace opd::adapters::sqlite {

/// The queue in which desks stand that want to write, on one machine: the library lets whoever asks at the right moment
/// have its lock, so that a busy desk keeps the others out for seconds. A place in it is a locked byte of a file beside
/// the database, so that who dies gives the place up. The queue keeps order and nothing else: the database's own lock
/// decides who writes, also where the file cannot be used.
class WriterQueue {
  public:
    explicit WriterQueue(std::filesystem::path file) : m_path(std::move(file)) {}
    ~WriterQueue();
    WriterQueue(const WriterQueue&) = delete;
    WriterQueue& operator=(const WriterQueue&) = delete;

    /// Waits until everybody who came before has gone, or until `goesOn`, which is asked over and over, says no.
    void enter(const std::function<bool()>& goesOn);

    /// Gives the place up, if there is one.
    void leave();

  private:
    void open();
    bool mapCounter();
    void takePlace();

    /// How many places before its own the first one is that somebody stands in; 0 when there is none.
    std::int64_t distance() const;

    std::filesystem::path m_path;
    int m_file = -1; ///< opened by the first who writes
    std::atomic<std::int64_t>* m_counter = nullptr;
    std::int64_t m_place = 0; ///< 0 while it stands in no queue
};

} // namespace opd::adapters::sqlite
