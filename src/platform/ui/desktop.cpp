#include "platform/ui/desktop.h"

namespace opd::ui {

namespace {

Desktop* processDesktop = nullptr;

} // namespace

Desktop* Desktop::ofProcess() {
    return processDesktop;
}

void Desktop::setOfProcess(Desktop* desktop) {
    processDesktop = desktop;
}

} // namespace opd::ui
