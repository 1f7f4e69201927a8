#pragma once

#include <string>

namespace opd::ui {

/// What a workstation's user made of each window: how large it is and whether it fills the screen, in words of the
/// desktop that shows it.
class WindowPlaces {
  public:
    virtual ~WindowPlaces() = default;

    /// What was kept for a window, or an empty text. Throws nothing: a place that cannot be read is none.
    virtual std::string placeOf(const std::string& window) const = 0;

    /// Keeps it for the next time. Throws nothing: where it cannot be kept, the window opens as it always did.
    virtual void keep(const std::string& window, const std::string& place) = 0;
};

} // namespace opd::ui
