#include "session/globals.h"

namespace opd {

void Globals::setClient(const std::string& code) {
    gClientName = code;
    m_client = &profileOf(code);
}

Globals& Globals::ofThread() {
    thread_local Globals globals;
    return globals;
}

} // namespace opd
