#pragma once

#include "ado/recordset.h"
#include "ui/grid.h"

#include <cstddef>
#include <vector>

namespace opd::data {

/// An answer as the rows of a grid, whose cells are made texts when they are looked at. The grid's first columns, as
/// many as `before`, stay empty.
ui::Grid::LaterRows laterRows(ado::ResultSet answer, int before = 0);

/// The same in another order, which names the rows of the answer by their places.
ui::Grid::LaterRows laterRows(ado::ResultSet answer, int before, std::vector<std::size_t> order);

} // namespace opd::data
