#include "adapters/qt/views/cell_float.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

namespace opd::qt {

CellFloat::CellFloat(QWidget& floating, QTableView& table) : QObject(&table), m_floating(floating), m_table(table) {
    floating.setParent(table.viewport());
    floating.installEventFilter(this);
    table.viewport()->installEventFilter(this);
    for (const QHeaderView* header : {table.horizontalHeader(), table.verticalHeader()})
        connect(header, &QHeaderView::sectionResized, this, &CellFloat::place);
    for (const QScrollBar* bar : {table.horizontalScrollBar(), table.verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &CellFloat::place);
    connect(table.selectionModel(), &QItemSelectionModel::currentChanged, this, &CellFloat::place);
}

bool CellFloat::eventFilter(QObject* object, QEvent* event) {
    if (object == &m_floating) {
        if (event->type() == QEvent::Show) {
            m_table.scrollTo(m_table.currentIndex());
            place();
        }
        return false;
    }
    if (event->type() == QEvent::Resize)
        place();
    // A key that the floating widget has no use for wanders to its parent; the table would take it and move on.
    return event->type() == QEvent::KeyPress;
}

void CellFloat::place() {
    if (m_floating.isVisibleTo(&m_table))
        m_floating.setGeometry(m_table.visualRect(m_table.currentIndex()));
}

} // namespace opd::qt
