#pragma once

#include "ui/control.h"

#include <functional>
#include <string>
#include <vector>

namespace opd::ui {

class TextBox;

/// A table of texts of which one row is current, or one cell where `picksCells` is set. Rows count from 1, row 0 is the
/// header; columns count from 0.
class Grid final : public Control {
  public:
    struct Column {
        std::string title;
        int width = 1440; ///< twips; 0 hides the column
        bool rightAligned = false;
    };
    using Row = std::vector<std::string>;

    /// Rows whose cells are asked for when somebody looks at them, so that a long answer shows at once.
    struct LaterRows {
        int count = 0;
        std::function<std::string(int row, int column)> cell; ///< rows and columns count as the grid's do
    };

    Grid(Container& container, Name name) : Control(Kind::Grid, &container, name, {}) {}

    const std::vector<Column>& columns() const { return m_columns; }
    Row row(int row) const;        ///< the texts of a row that exists; std::out_of_range for any other
    std::vector<Row> rows() const; ///< those of all rows
    int rowCount() const { return m_later.cell ? m_later.count : static_cast<int>(m_rows.size()); }

    /// The columns and rows to show from now on; the first row becomes current when there is one.
    void show(std::vector<Column> columns, std::vector<Row> rows);
    void showLater(std::vector<Column> columns, LaterRows rows);

    /// Takes all rows away and leaves the columns.
    void clear() { show(m_columns, {}); }

    /// The current row from 1, 0 when there is none. Setting it raises `onRowChange` when it is another one.
    int currentRow() const { return m_currentRow; }
    void setCurrentRow(int row) { setCurrentCell(row, m_currentColumn); }

    /// The current column; always 0 where whole rows are picked.
    int currentColumn() const { return m_currentColumn; }
    void setCurrentCell(int row, int column);

    /// The text of a cell; empty outside the table.
    std::string cell(int row, int column) const;

    /// Puts a text into a cell that exists; std::out_of_range for any other.
    void setCell(int row, int column, const std::string& text);

    /// Adds an empty row behind the last one and returns its number.
    int addRow();

    /// Takes a row away. When it was the current one, the row behind it takes its place, or the new last one.
    void removeRow(int row);

    /// The text of the current cell; where whole rows are picked, of the first column of the current one.
    std::string shownText() const override { return cell(m_currentRow, m_currentColumn); }

    bool picksCells = false; ///< the clerk picks single cells, not whole rows

    /// The box that takes a character typed on the grid, by that character; null for none. Where it is set, such a
    /// character begins a new content of the box: see Window.
    std::function<TextBox*(char32_t)> typesInto;

    Event<> onRowChange;

  private:
    void shown();
    std::vector<Row>& ownRows();

    std::vector<Column> m_columns;
    std::vector<Row> m_rows; ///< empty while it has later ones
    LaterRows m_later;
    int m_currentRow = 0;
    int m_currentColumn = 0;
};

/// The columns that a format string describes: captions parted by "|", each led by "<" (left) or ">" (right), with the
/// widths in twips for the first of them. A column without a width keeps the default one.
std::vector<Grid::Column> gridColumns(const std::string& format, const std::vector<int>& widths);

} // namespace opd::ui
