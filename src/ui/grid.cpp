#include "ui/grid.h"

#include "base/text/text.h"
#include "ui/window.h"

#include <algorithm>
#include <stdexcept>

namespace opd::ui {

void Grid::show(std::vector<Column> columns, std::vector<Row> rows) {
    m_columns = std::move(columns);
    m_rows = std::move(rows);
    m_later = {};
    shown();
}

void Grid::showLater(std::vector<Column> columns, LaterRows rows) {
    m_columns = std::move(columns);
    m_rows.clear();
    m_later = std::move(rows);
    shown();
}

void Grid::shown() {
    m_currentRow = 0;
    m_currentColumn = 0;
    tellView(Aspect::Table);
    if (rowCount() > 0)
        setCurrentRow(1);
}

Grid::Row Grid::row(int row) const {
    if (!m_later.cell)
        return m_rows.at(static_cast<std::size_t>(row - 1));
    if (row < 1 || row > m_later.count)
        throw std::out_of_range("The grid has no such row.");
    Row cells;
    for (int column = 0; column < static_cast<int>(m_columns.size()); ++column)
        cells.push_back(m_later.cell(row, column));
    return cells;
}

std::vector<Grid::Row> Grid::rows() const {
    std::vector<Row> all;
    for (int at = 1; at <= rowCount(); ++at)
        all.push_back(row(at));
    return all;
}

/// The rows to be changed.
std::vector<Grid::Row>& Grid::ownRows() {
    if (m_later.cell) {
        m_rows = rows();
        m_later = {};
    }
    return m_rows;
}

void Grid::setCurrentCell(int row, int column) {
    if (!picksCells)
        column = 0;
    const int lastColumn = std::max(0, static_cast<int>(m_columns.size()) - 1);
    if (row < 0 || row > rowCount() || column < 0 || column > lastColumn)
        return;
    const bool otherRow = row != m_currentRow;
    if (!otherRow && column == m_currentColumn)
        return;
    m_currentRow = row;
    m_currentColumn = column;
    tellView(Aspect::CurrentCell);
    if (otherRow)
        onRowChange();
}

void Grid::setCell(int row, int column, const std::string& text) {
    Row& cells = ownRows().at(static_cast<std::size_t>(row - 1));
    cells.resize(m_columns.size()); // a row may have been given without its last cells
    std::string& cell = cells.at(static_cast<std::size_t>(column));
    if (cell == text)
        return;
    cell = text;
    tellView(Aspect::Cells);
}

int Grid::addRow() {
    ownRows().emplace_back(m_columns.size());
    tellView(Aspect::Cells);
    return rowCount();
}

void Grid::removeRow(int row) {
    if (row < 1 || row > rowCount())
        return;
    ownRows().erase(ownRows().begin() + (row - 1));
    const bool wasCurrent = m_currentRow == row;
    // A current row behind it is the same one under another number.
    m_currentRow = m_currentRow > row ? m_currentRow - 1 : std::min(m_currentRow, rowCount());
    tellView(Aspect::Cells);
    if (wasCurrent)
        onRowChange();
}

std::string Grid::cell(int row, int column) const {
    if (row < 1 || row > rowCount() || column < 0)
        return {};
    if (m_later.cell)
        return column < static_cast<int>(m_columns.size()) ? m_later.cell(row, column) : std::string{};
    const Row& cells = m_rows[static_cast<std::size_t>(row - 1)];
    return static_cast<std::size_t>(column) < cells.size() ? cells[static_cast<std::size_t>(column)] : std::string{};
}

std::vector<Grid::Column> gridColumns(const std::string& format, const std::vector<int>& widths) {
    std::vector<Grid::Column> columns;
    for (std::size_t start = 0; start <= format.size();) {
        const std::size_t end = std::min(format.find('|', start), format.size());
        std::string title = format.substr(start, end - start);
        Grid::Column column;
        if (!title.empty() && (title.front() == '<' || title.front() == '>')) {
            column.rightAligned = title.front() == '>';
            title.erase(0, 1);
        }
        column.title = text::trimmed(title);
        if (columns.size() < widths.size())
            column.width = widths[columns.size()];
        columns.push_back(std::move(column));
        start = end + 1;
    }
    return columns;
}

} // namespace opd::ui
