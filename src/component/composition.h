#pragma once

#include "ado/connection.h"
#include "base/clock/clock.h"
#include "com/server.h"
#include "ports/camera/camera.h"
#include "ports/image/image.h"
#include "ports/report/engine.h"
#include "ports/report/output.h"
#include "ports/settings/store.h"
#include "ui/desktop.h"

#include <filesystem>
#include <memory>
#include <string>

/// Which adapter stands behind which port, as the environment says (see component/environment.h).
namespace opd::composition {

/// The workstation user's settings.
std::unique_ptr<settings::Store> makeStore();

/// Adds the providers that this component brings along to those of the process. What they have opened counts as a use
/// of the component's server.
void addProviders(com::Server& server);

/// Has the connection write each statement that it sends to the trace file, if one is asked for. The file begins
/// empty once per process, with mode 0600: it may hold patient data. Throws std::runtime_error when it cannot be begun;
/// what goes wrong later is told to the user, once, and touches no statement.
void traceStatements(ado::Connection& connection);

/// Has the desktop draw itself while statements of the connection wait.
void drawWhileWaiting(ado::Connection& connection);

/// The clock of the process: the machine's, or the moment at which the environment has it stand. Throws
/// std::runtime_error where that is none.
const Clock& clock();

/// What reads and writes picture files.
const ImageCodec& images();

/// Makes documents from report files, with the photographs of the folder that the settings name.
std::unique_ptr<report::Engine> makeReportEngine(const settings::Store& settings);

/// What is remembered of printing.
report::PrintMemory& prints();

/// The camera of the process: the file that stands in for one, or else the workstation's, which is looked for when it
/// is first used. A desktop without a screen has none.
Camera& camera();

/// The folder that the component lies in.
std::filesystem::path moduleFolder();

/// The desktop of the calling thread. It is made when a window or message is first shown on it, and lives as long as
/// its thread, real windows as long as the process; until then neither toolkit nor display is needed. Showing throws
/// std::runtime_error when it cannot be made, and on a second thread that asks for real windows: there is one screen.
ui::Desktop& desktop();

/// Tells the user what hinders no work: on standard error at once and, where a clerk sits before real windows, in a box
/// behind the next message or before the next window.
void tellUser(const std::string& text);

} // namespace opd::composition
