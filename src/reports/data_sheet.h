#pragma once

#include "ports/report/engine.h"
#include "session/session.h"

#include <memory>
#include <string>

namespace opd::reports {

/// Opens the data sheet of a visit. Throws std::runtime_error when its report file cannot be used.
std::unique_ptr<report::Report> prepareDataSheet(const Session& session, const std::string& opdNumber);

/// Shows it for reading and printing; returns when it is closed. Throws as ShowReport does.
void showDataSheet(Session& session, const report::Report& dataSheet);

} // namespace opd::reports
