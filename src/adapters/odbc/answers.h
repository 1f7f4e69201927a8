#pragma once

#include "adapters/odbc/session.h"

namespace opd::adapters::odbc {

/// Sends a text and reads all that the server answers to it: the first result with columns is the answer. A failure in
/// any of the results is thrown as ado::Error, when the server has done all that it does.
ado::ResultSet answerOf(const Query& query, const std::string& text);

/// Runs the call and returns its output values in the order of its outputs. Throws ado::Error.
std::vector<ado::Value> outputsOf(const Query& query, const ado::Call& call);

} // namespace opd::adapters::odbc
