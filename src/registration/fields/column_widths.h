#pragma once

namespace opd::registration {

/// What a server's columns hold, in characters, for the fields that have no length of their own: a text that is too
/// long for its column would be refused when everything else is typed.
namespace widths {

inline constexpr int text = 255;
inline constexpr int code = 50;
inline constexpr int zipCode = 20;

} // namespace widths

} // namespace opd::registration
