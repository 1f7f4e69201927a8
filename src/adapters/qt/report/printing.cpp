#include "adapters/qt/report/printing.h"

#include "base/os/library.h"

namespace opd::qt {

namespace {

Printing& openModule() {
    const auto folder = os::libraryOf(reinterpret_cast<const void*>(&openModule)).parent_path();
    const os::Library module{folder / os::libraryFileName("opd-print-qt")};
    return *module.function<CreatePrinting>(createPrintingSymbol)();
}

} // namespace

Printing& printing() {
    static Printing& ofProcess = openModule();
    return ofProcess;
}

} // namespace opd::qt
