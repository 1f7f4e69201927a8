#pragma once

#include "base/os/library.h"
#include "script/player.h"
#include "ui/desktop.h"
#include "ui/window_places.h"

#include <filesystem>
#include <string>
#include <vector>

namespace opd::ui {

/// What a workstation has for the windows.
struct DesktopInventory {
    std::string font;        ///< the family that the windows are written in; empty where there is none
    bool hasLetters = false; ///< that font has all that names are written with
    std::vector<std::string> printers;
    std::string standardPrinter;           ///< of these; may be empty
    bool standardPrinterIsStopped = false; ///< it takes pages and prints none
};

} // namespace opd::ui

/// What a desktop with a screen offers: it lies in a library of its own, called by the desktop's name. Whoever wants
/// one opens the library, looks up the two functions by name, and keeps the library open while the desktop lives.
extern "C" {

/// Makes the desktop; the caller owns it and gives it back to opdDestroyDesktop. With a player the desktop is worked by
/// that script instead of by a clerk. The windows open as `places` remembers them. Both may be null and must outlive
/// the desktop. Null when there is no screen to show windows on.
opd::ui::Desktop* opdCreateDesktop(opd::script::Player* player, opd::ui::WindowPlaces* places);

/// Ends a desktop that opdCreateDesktop made. Null is ignored.
void opdDestroyDesktop(opd::ui::Desktop* desktop);

/// Looks at the workstation without showing a window. False when there is no screen, as the toolkit understands it.
bool opdInspectDesktop(opd::ui::DesktopInventory* found);
}

namespace opd::ui {

/// The library of the desktop of that name in a folder; an empty path when there is none.
inline std::filesystem::path desktopModule(const std::filesystem::path& folder, const std::string& name) {
    const std::filesystem::path file = folder / os::libraryFileName("opd-desktop-" + name);
    const bool isName = name.find_first_of("/\\") == std::string::npos;
    return isName && std::filesystem::exists(file) ? file : std::filesystem::path{};
}

inline constexpr const char* createDesktopSymbol = "opdCreateDesktop";
inline constexpr const char* destroyDesktopSymbol = "opdDestroyDesktop";
inline constexpr const char* inspectDesktopSymbol = "opdInspectDesktop";

using CreateDesktop = Desktop* (*)(script::Player*, WindowPlaces*);
using DestroyDesktop = void (*)(Desktop*);
using InspectDesktop = bool (*)(DesktopInventory*);

} // namespace opd::ui
