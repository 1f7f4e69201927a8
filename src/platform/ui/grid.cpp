#include "platform/ui/grid.h"

#include "platform/text/text.h"
#include "platform/ui/window.h"

namespace opd::ui {

void Grid::show(std::vector<Column> columns, std::vector<Row> rows) {
    m_columns = std::move(columns);
    m_rows = std::move(rows);
    m_currentRow = 0;
    tellView(Aspect::Table);
    if (!m_rows.empty())
        setCurrentRow(1);
}

void Grid::setCurrentRow(int row) {
    if (row == m_currentRow || row < 0 || row > rowCount())
        return;
    m_currentRow = row;
    tellView(Aspect::CurrentRow);
    if (onRowChange)
        onRowChange();
}

std::string Grid::cell(int row, int column) const {
    if (row < 1 || row > rowCount() || column < 0)
        return {};
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
