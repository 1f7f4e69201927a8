#include "base/os/library.h"
#include "base/os/trust.h"
#include "host/doctor/checks.h"
#include "host/program_folder.h"
#include "ports/camera/camera_module.h"
#include "script/desktop_module.h"

#include <cstdlib>

namespace opd::host {

namespace {

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

Finding displayFinding() {
    if (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY"))
        return right("display", "There is one.");
    if (!isSet("QT_QPA_PLATFORM"))
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1); // letters and printers are looked at without one
    return missing("display", "This session has none; the desk opens where there is one.");
}

ui::DesktopInventory inventory() {
    const os::Library module{os::trustedLibrary(ui::desktopModule(programFolder(), "qt"))};
    ui::DesktopInventory found;
    module.function<std::remove_pointer_t<ui::InspectDesktop>>(ui::inspectDesktopSymbol)(&found);
    return found;
}

Finding fontFinding(const ui::DesktopInventory& found) {
    constexpr const char* install = "sudo apt install fonts-dejavu-core";
    if (found.font.empty())
        return wrong("fonts", "There is no font: every letter would be a box.", install);
    if (!found.hasLetters)
        return wrong("fonts", "The font \"" + found.font + "\" has not all letters of names (\"\u00d1\").", install);
    return right("fonts", "The windows are written in \"" + found.font + "\".");
}

Finding printerFinding(const ui::DesktopInventory& found) {
    if (found.printers.empty())
        return missing("printer", "There is none: the data sheet can be saved as a PDF file alone.",
                       "sudo lpadmin -p NAME -E -v ADDRESS -m everywhere");
    if (found.standardPrinter.empty())
        return missing("printer", "None of them is the standard one.",
                       "lpoptions -d " + shellWord(found.printers.front()));
    return right("printer", "Pages go to \"" + found.standardPrinter + "\".");
}

Finding cameraFinding() {
    const std::filesystem::path file = programFolder() / os::libraryFileName("opd-camera-qt");
    std::error_code unreadable;
    if (!std::filesystem::exists(file, unreadable))
        return missing("camera", "This workstation is made without one (\"" + file.string() + "\" is not there).");
    try {
        const os::Library module{file};
        std::vector<std::string> names;
        module.function<std::remove_pointer_t<ListCameras>>(listCamerasSymbol)(&names);
        return names.empty() ? missing("camera", "None is connected, or this user may not use it.",
                                       "ls -l /dev/video* && sudo usermod -a -G video \"$USER\"")
                             : right("camera", names.front());
    } catch (const os::LibraryError& error) {
        return wrong("camera", error.what(), "sudo apt install libqt6multimedia6");
    }
}

} // namespace

Findings checkWorkstation() {
    Findings found{displayFinding()};
    try {
        const ui::DesktopInventory there = inventory();
        found.push_back(fontFinding(there));
        found.push_back(printerFinding(there));
    } catch (const os::LibraryError& error) {
        found.push_back(wrong("windows", error.what(), libraryMend(ui::desktopModule(programFolder(), "qt"), error)));
        return found; // a camera needs them
    }
    found.push_back(cameraFinding());
    return found;
}

} // namespace opd::host
