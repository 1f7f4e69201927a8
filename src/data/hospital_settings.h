#pragma once

#include "session/session.h"

namespace opd::data {

/// Reads the hospital's settings row into the feature flags; without a row they stay as they are. Throws ado::Error.
void loadFeatureFlags(Session& session);

/// Reads the client code, the hospital's name and address into the session. Throws ado::Error.
void LoadHospitalInfo(Session& session);

} // namespace opd::data
