#include "data/grid_rows.h"

#include <memory>

namespace opd::data {

namespace {

std::string textAt(const std::vector<ado::Value>& row, int column) {
    const auto at = static_cast<std::size_t>(column);
    return column >= 0 && at < row.size() ? row[at].asText() : std::string{};
}

} // namespace

ui::Grid::LaterRows laterRows(ado::ResultSet answer, int before) {
    const int count = static_cast<int>(answer.rows.size());
    const auto kept = std::make_shared<const ado::ResultSet>(std::move(answer));
    return {count, [kept, before](int row, int column) {
                return textAt(kept->rows[static_cast<std::size_t>(row - 1)], column - before);
            }};
}

ui::Grid::LaterRows laterRows(ado::ResultSet answer, int before, std::vector<std::size_t> order) {
    const int count = static_cast<int>(order.size());
    const auto kept = std::make_shared<const ado::ResultSet>(std::move(answer));
    return {count, [kept, before, places = std::move(order)](int row, int column) {
                return textAt(kept->rows[places[static_cast<std::size_t>(row - 1)]], column - before);
            }};
}

} // namespace opd::data
