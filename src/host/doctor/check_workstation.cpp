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

/// False when the session's display does not answer.
bool inspect(ui::DesktopInventory& found) {
    const os::Library module{os::trustedLibrary(ui::desktopModule(programFolder(), "qt"))};
    return module.function<std::remove_pointer_t<ui::InspectDesktop>>(ui::inspectDesktopSymbol)(&found);
}

/// Letters and printers are looked at without a display where there is none.
Finding inspectWithDisplay(ui::DesktopInventory& found) {
    const bool hasOne = isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
    if (hasOne && inspect(found))
        return right("display", "There is one.");
    if (hasOne || !isSet("QT_QPA_PLATFORM"))
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    inspect(found);
    return hasOne ? missing("display", "That of this session does not answer this user. The desk opens where one does.")
                  : missing("display", "This session has none; the desk opens where there is one.");
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
    if (found.standardPrinterIsStopped)
        return wrong("printer", "\"" + found.standardPrinter + "\" is stopped: pages wait and are not printed.",
                     "sudo cupsenable " + shellWord(found.standardPrinter));
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
    Findings found;
    try {
        ui::DesktopInventory there;
        found.push_back(inspectWithDisplay(there));
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
