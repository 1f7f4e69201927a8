#pragma once

#include "platform/ado/connection.h"
#include "platform/clock/clock.h"
#include "platform/settings/store.h"
#include "platform/ui/desktop.h"

#include <memory>

/// Which adapter stands behind which port, as the environment says (see entry/environment.h).
namespace opd::composition {

/// The workstation user's settings.
std::unique_ptr<settings::Store> makeStore();

/// Adds the providers that this component brings along to those of the process.
void addProviders();

/// Has the connection write each statement that it sends to the trace file, if one is asked for. The file begins
/// empty once per process, with mode 0600: it may hold patient data. Throws std::runtime_error when it cannot be
/// written.
void traceStatements(ado::Connection& connection);

const Clock& clock();

/// The desktop of the process. It is made when a window or message is first shown on it, and lives as long as the
/// process; until then neither toolkit nor display is needed. Showing throws std::runtime_error when it cannot be made.
ui::Desktop& desktop();

} // namespace opd::composition
