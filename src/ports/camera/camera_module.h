#pragma once

#include "ports/camera/camera.h"

/// What a camera that lies in a library of its own offers. Whoever wants it opens the library, looks up the function by
/// name, and keeps the library open while the camera lives.
extern "C" {

/// Makes the camera, which lives as long as the process. Needs a desktop of the same toolkit.
opd::Camera* opdCreateCamera();
}

namespace opd {

inline constexpr const char* createCameraSymbol = "opdCreateCamera";

using CreateCamera = Camera* (*)();

} // namespace opd
