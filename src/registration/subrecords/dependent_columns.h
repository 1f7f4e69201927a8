#pragma once

namespace opd::registration {

/// The columns of the grid of dependents, and of the rows that it is loaded from.
inline constexpr int nameColumn = 0;
inline constexpr int birthDateColumn = 1;

} // namespace opd::registration
