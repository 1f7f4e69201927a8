#include "session/globals.h"

namespace opd {

Globals& Globals::ofThread() {
    thread_local Globals globals;
    return globals;
}

} // namespace opd
