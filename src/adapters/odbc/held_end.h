#pragma once

#include <atomic>
#include <memory>

namespace opd::adapters::odbc {

/// Set when the work of a thread was held at the end that it wanted to make of the process.
using WasHeld = std::shared_ptr<std::atomic<bool>>;

/// Drivers end the whole process where they take something for a fault of their own: for FreeTDS's an answer that the
/// network cut off at the wrong place is enough. On the calling thread, until the end of the scope, that is held: the
/// thread stands still for ever with all that it holds, and the process goes on. Any other thread ends it as ever.
class HeldEnd {
  public:
    explicit HeldEnd(WasHeld wasHeld);
    ~HeldEnd();
    HeldEnd(const HeldEnd&) = delete;
    HeldEnd& operator=(const HeldEnd&) = delete;

  private:
    WasHeld m_wasHeld;
};

} // namespace opd::adapters::odbc
