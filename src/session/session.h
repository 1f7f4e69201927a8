#pragma once

#include "base/clock/clock.h"
#include "ports/camera/camera.h"
#include "ports/image/image.h"
#include "ports/report/engine.h"
#include "ports/report/output.h"
#include "ports/settings/store.h"
#include "session/globals.h"
#include "ui/desktop.h"

#include <filesystem>
#include <functional>
#include <string>

namespace opd {

/// What the module brings along or finds at the workstation besides windows and database.
struct Devices {
    const report::Engine& reports;
    Camera& camera;
    const ImageCodec& images;
    report::PrintMemory& prints;
    std::filesystem::path moduleFolder; ///< where the module lies, with its report files below
};

/// What a window or procedure needs of the world around it. All referenced objects outlive every window.
struct Session {
    Globals& globals;
    ui::Desktop& desktop;
    const Clock& clock;
    const settings::Store& settings;

    /// Creates a component by its programmatic identifier. Throws com::Error when it cannot be created.
    std::function<com::Object(const std::string& programId)> createObject;

    Devices devices;

    /// The shared connection. Throws ado::Error when the host has handed over none.
    ado::Connection& connection() const;
};

} // namespace opd
