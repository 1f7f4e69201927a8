#pragma once

#include <QObject>

#include <vector>

class QTableView;

namespace opd::qt {

/// How wide the columns of a table are: what the form gives them, more where a text is cut and others have room to
/// spare. What the current row has in the last column and in the current one is always whole: where there is no room
/// the table scrolls sideways, and the Left and Right arrows lead there. A column that the clerk dragged stays as it
/// is.
class GridColumns final : public QObject {
  public:
    explicit GridColumns(QTableView& table);

    /// Begins afresh with the widths of a form, in pixels; a column of 0 is hidden.
    void give(std::vector<int> widths);

    /// Looks at the rows that are seen first, which are others than before.
    void rowsReplaced();

    /// Shares out the room that there is now.
    void fit();

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    int lastShown() const;
    int widthOf(int row, int column) const;
    int needOf(int column) const;
    void shareOut(std::vector<int>& widths, int spare) const;
    void resized(int column, int width);
    bool scrolls(int key) const;

    QTableView& m_table;
    std::vector<int> m_given;
    std::vector<int> m_needed; ///< by the titles and the rows that are seen first
    std::vector<bool> m_dragged;
    bool m_fitting = false;
};

} // namespace opd::qt
