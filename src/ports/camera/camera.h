#pragma once

#include "ports/image/image.h"

#include <optional>

namespace opd {

/// The camera of the workstation.
class Camera {
  public:
    virtual ~Camera() = default;

    /// One frame of the first camera, or nothing where there is none or it gives no picture. Returns within a few
    /// seconds; windows are redrawn meanwhile.
    virtual std::optional<Image> takeStill() = 0;
};

} // namespace opd
