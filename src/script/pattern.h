#pragma once

#include <string>

namespace opd::script {

/// True when a regular expression (of ECMAScript) describes the whole of a text, however long that is. Throws
/// std::runtime_error when it is none.
bool describes(const std::string& pattern, const std::string& text);

} // namespace opd::script
