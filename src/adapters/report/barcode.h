#pragma once

#include "ports/image/image.h"

#include <string>

namespace opd::adapters::reporting {

/// The bars of a text in Code 128, with the empty zones that a scanner needs at both ends and without the text below.
/// Throws std::runtime_error for a text that the code cannot hold, such as an empty one.
Image code128(const std::string& text);

} // namespace opd::adapters::reporting
