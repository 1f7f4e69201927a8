#pragma once

#include "adapters/sqlite/engine/database.h"

namespace opd::adapters::sqlite {

/// Keeps the numbers that the connection draws, in its own memory, until a row is written under them. Until then a row
/// that is found under such a number is another one's, and writing to it fails (2627): the row of a new patient or
/// visit never takes the place of one. The number procedures put what they give into `temp.DrawnNumber`. What is rolled
/// back is drawn again, what is committed is written and may be written again.
void guardDrawnNumbers(Database& database);

} // namespace opd::adapters::sqlite
