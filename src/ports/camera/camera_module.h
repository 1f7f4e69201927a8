#pragma once

#include "ports/camera/camera.h"

#include <string>
#include <vector>

/// What a camera that lies in a library of its own offers. Whoever wants it opens the library, looks up the function by
/// name, and keeps the library open while the camera lives.
extern "C" {

/// Makes the camera, which lives as long as the process. Needs a desktop of the same toolkit.
opd::Camera* opdCreateCamera();

/// Puts the names of the workstation's cameras, the standard one first, behind what is there. Needs what the former
/// needs.
void opdListCameras(std::vector<std::string>* names);
}

namespace opd {

inline constexpr const char* createCameraSymbol = "opdCreateCamera";
inline constexpr const char* listCamerasSymbol = "opdListCameras";

using CreateCamera = Camera* (*)();
using ListCameras = void (*)(std::vector<std::string>*);

} // namespace opd
