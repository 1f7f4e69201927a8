#include "adapters/odbc/held_end.h"

#include <csignal>
#include <mutex>
#include <unistd.h>
#include <utility>

namespace opd::adapters::odbc {

namespace {

using Handler = void (*)(int);

thread_local std::atomic<bool>* heldOfThread = nullptr;
std::atomic<Handler> handlerBefore = SIG_DFL;

/// Returning lets the process end; whoever wanted to hear of it before still does.
extern "C" void onAbort(int signal) {
    if (heldOfThread == nullptr) {
        const Handler before = handlerBefore;
        if (before != SIG_DFL && before != SIG_IGN)
            before(signal);
        return;
    }
    heldOfThread->store(true);
    for (;;)
        ::pause();
}

void installOnce() {
    static std::once_flag installed;
    std::call_once(installed, [] {
        const Handler before = std::signal(SIGABRT, &onAbort);
        handlerBefore = before == SIG_ERR ? SIG_DFL : before;
    });
}

} // namespace

HeldEnd::HeldEnd(WasHeld wasHeld) : m_wasHeld(std::move(wasHeld)) {
    installOnce();
    heldOfThread = m_wasHeld.get();
}

HeldEnd::~HeldEnd() {
    heldOfThread = nullptr;
}

} // namespace opd::adapters::odbc
