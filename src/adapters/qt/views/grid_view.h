#pragma once

#include "adapters/qt/views/control_view.h"
#include "adapters/qt/views/grid_columns.h"

#include <QAbstractTableModel>

#include <functional>
#include <optional>

class QTableView;

namespace opd::qt {

/// Notices a double click on a table without rows, which no signal of the table tells.
class EmptyTableClicks final : public QObject {
  public:
    EmptyTableClicks(QTableView& table, std::function<void()> doubleClicked);

    bool eventFilter(QObject* viewport, QEvent* event) override;

  private:
    QTableView& m_table;
    std::function<void()> m_doubleClicked;
};

/// Reads the cells that are seen straight from the grid; nothing is copied, so any number of rows shows at once.
class GridTable final : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit GridTable(const ui::Grid& grid) : m_grid(&grid) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The grid has other columns or rows.
    void replaced();

    /// The grid is gone: an empty table remains.
    void detach();

  private:
    const ui::Grid* m_grid;
};

class GridView final : public ControlView {
  public:
    GridView(ui::Grid& grid, QWidget* widget);

    void show(ui::Aspect aspect) override;
    QString shownText() const override;
    void release() override;

  private:
    void prepare();
    void followMark();
    void showTable();
    void showCells();
    void showCurrentCell();

    ui::Grid& m_grid;
    QTableView* m_table;
    GridTable m_rows;
    EmptyTableClicks m_emptyClicks;
    std::optional<GridColumns> m_columns;
};

} // namespace opd::qt
