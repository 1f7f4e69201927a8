#pragma once

#include "session/session.h"

namespace opd {

enum class SearchEnd { PatientOpened, ClosedByClerk };

/// Starts a session on the connection that the host handed over and shows the patient search; returns when no window is
/// left. Throws ado::Error, com::Error or std::runtime_error; what the session holds by then stays.
SearchEnd runSearch(Session& session);

} // namespace opd
