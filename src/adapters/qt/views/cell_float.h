#pragma once

#include <QObject>

class QTableView;
class QWidget;

namespace opd::qt {

/// Keeps a widget over the current cell of a table while it is visible, wherever the cell goes: the table is scrolled,
/// its columns change their widths, another cell becomes the current one. The widget becomes a part of the table, which
/// owns this.
class CellFloat final : public QObject {
    Q_OBJECT

  public:
    CellFloat(QWidget& floating, QTableView& table);

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void place();

    QWidget& m_floating;
    QTableView& m_table;
};

} // namespace opd::qt
