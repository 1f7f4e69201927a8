#pragma once

#include "base/os/library.h"
#include "script/player.h"
#include "ui/desktop.h"
#include "ui/window_places.h"

/// What a desktop with a screen offers: it lies in a library of its own, called by the desktop's name. Whoever wants
/// one opens the library, looks up the two functions by name, and keeps the library open while the desktop lives.
extern "C" {

/// Makes the desktop; the caller owns it and gives it back to opdDestroyDesktop. With a player the desktop is worked by
/// that script instead of by a clerk. The windows open as `places` remembers them. Both may be null and must outlive
/// the desktop. Null when there is no screen to show windows on.
opd::ui::Desktop* opdCreateDesktop(opd::script::Player* player, opd::ui::WindowPlaces* places);

/// Ends a desktop that opdCreateDesktop made. Null is ignored.
void opdDestroyDesktop(opd::ui::Desktop* desktop);
}

namespace opd::ui {

/// The file name of the library in which the desktop of that name lies.
inline std::string desktopLibrary(const std::string& name) {
    return os::libraryFileName("opd-desktop-" + name);
}

inline constexpr const char* createDesktopSymbol = "opdCreateDesktop";
inline constexpr const char* destroyDesktopSymbol = "opdDestroyDesktop";

using CreateDesktop = Desktop* (*)(script::Player*, WindowPlaces*);
using DestroyDesktop = void (*)(Desktop*);

} // namespace opd::ui
