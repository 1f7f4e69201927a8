#include "adapters/qt/views/grid_columns.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace opd::qt {

namespace {

constexpr int rowsLookedAt = 30; ///< for the width of their texts; about what a window shows
constexpr int besideText = 8;

} // namespace

GridColumns::GridColumns(QTableView& table) : m_table(table) {
    QHeaderView* titles = table.horizontalHeader();
    titles->setHighlightSections(false);
    titles->setStretchLastSection(true);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.viewport()->installEventFilter(this);
    table.installEventFilter(this);
    connect(titles, &QHeaderView::sectionResized, this, [this](int column, int, int width) { resized(column, width); });
    connect(table.selectionModel(), &QItemSelectionModel::currentChanged, this, &GridColumns::fit);
}

void GridColumns::give(std::vector<int> widths) {
    const QScopedValueRollback fitting(m_fitting, true);
    m_given = std::move(widths);
    m_dragged.assign(m_given.size(), false);
    for (std::size_t i = 0; i < m_given.size(); ++i) {
        const int column = static_cast<int>(i);
        m_table.setColumnHidden(column, m_given[i] == 0);
        if (m_given[i] > 0)
            m_given[i] = std::max(m_given[i], m_table.horizontalHeader()->sectionSizeHint(column));
    }
}

void GridColumns::rowsReplaced() {
    m_needed.assign(m_given.size(), 0);
    const int rows = std::min(m_table.model()->rowCount(), rowsLookedAt);
    for (std::size_t i = 0; i < m_given.size(); ++i) {
        const int column = static_cast<int>(i);
        if (m_given[i] == 0)
            continue;
        m_needed[i] = m_table.horizontalHeader()->sectionSizeHint(column);
        for (int row = 0; row < rows; ++row)
            m_needed[i] = std::max(m_needed[i], widthOf(row, column));
    }
    fit();
}

int GridColumns::lastShown() const {
    int last = static_cast<int>(m_given.size()) - 1;
    while (last >= 0 && m_given[static_cast<std::size_t>(last)] == 0)
        --last;
    return last;
}

int GridColumns::widthOf(int row, int column) const {
    const QString text = m_table.model()->index(row, column).data().toString();
    return m_table.fontMetrics().horizontalAdvance(text) + besideText;
}

int GridColumns::needOf(int column) const {
    const QModelIndex current = m_table.currentIndex();
    const int seenFirst = m_needed[static_cast<std::size_t>(column)];
    return current.isValid() ? std::max(seenFirst, widthOf(current.row(), column)) : seenFirst;
}

/// Gives what is to spare, and what the widest columns do not need, to those in which a text is cut.
void GridColumns::shareOut(std::vector<int>& widths, int spare) const {
    std::vector<int> lacking(widths.size(), 0); // below 0 what a column has to spare
    int wanted = -spare;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (m_given[i] > 0 && !m_dragged[i])
            lacking[i] = needOf(static_cast<int>(i)) - widths[i];
        wanted += std::max(0, lacking[i]);
    }
    while (wanted > 0 && !lacking.empty()) {
        const auto widest = std::min_element(lacking.begin(), lacking.end());
        const int taken = std::min(wanted, -*widest);
        if (taken <= 0)
            break;
        widths[static_cast<std::size_t>(widest - lacking.begin())] -= taken;
        *widest += taken;
        wanted -= taken;
        spare += taken;
    }
    for (std::size_t i = 0; i < widths.size() && spare > 0; ++i) {
        const int more = std::clamp(lacking[i], 0, spare);
        widths[i] += more;
        spare -= more;
    }
}

void GridColumns::fit() {
    const int last = lastShown();
    if (m_fitting || last < 0 || m_needed.size() != m_given.size())
        return;
    const QScopedValueRollback fitting(m_fitting, true);
    std::vector<int> widths(m_given.begin(), m_given.begin() + last); // all but the last one
    const auto leftOver = [&] {
        int room = m_table.viewport()->width();
        for (const int width : widths)
            room -= width;
        return room;
    };
    const auto end = static_cast<std::size_t>(last);
    const int atEnd = m_dragged[end] ? m_given[end] : needOf(last);
    shareOut(widths, leftOver() - atEnd);
    const QModelIndex current = m_table.currentIndex();
    if (const int here = current.isValid() ? current.column() : last; here < last && !m_table.isColumnHidden(here))
        widths[static_cast<std::size_t>(here)] =
            std::max(widths[static_cast<std::size_t>(here)], widthOf(current.row(), here));
    for (int i = 0; i < last; ++i)
        if (widths[static_cast<std::size_t>(i)] > 0)
            m_table.setColumnWidth(i, widths[static_cast<std::size_t>(i)]);
    const bool hasRoom = atEnd <= leftOver();
    if (m_table.horizontalHeader()->stretchLastSection() != hasRoom)
        m_table.horizontalHeader()->setStretchLastSection(hasRoom);
    if (!hasRoom)
        m_table.setColumnWidth(last, atEnd);
}

// The last one is resized with its window, too, while it takes what the others leave.
void GridColumns::resized(int column, int width) {
    const auto dragged = static_cast<std::size_t>(column);
    const bool follows = column == lastShown() && m_table.horizontalHeader()->stretchLastSection();
    if (m_fitting || follows || dragged >= m_given.size())
        return;
    m_given[dragged] = width;
    m_dragged[dragged] = true;
}

/// Moves on within a last column that is wider than the table.
bool GridColumns::scrolls(int key) const {
    const bool onward = key == Qt::Key_Right;
    if ((!onward && key != Qt::Key_Left) || !m_table.currentIndex().isValid() ||
        m_table.currentIndex().column() != lastShown())
        return false;
    QScrollBar& bar = *m_table.horizontalScrollBar();
    const int start = std::min(m_table.horizontalHeader()->sectionPosition(lastShown()), bar.maximum());
    if (onward ? bar.value() >= bar.maximum() : bar.value() <= start)
        return false;
    const int half = m_table.viewport()->width() / 2;
    bar.setValue(std::clamp(bar.value() + (onward ? half : -half), start, bar.maximum()));
    return true;
}

bool GridColumns::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Resize && object == m_table.viewport())
        fit();
    if (event->type() == QEvent::KeyPress && scrolls(static_cast<const QKeyEvent*>(event)->key()))
        return true;
    return QObject::eventFilter(object, event);
}

} // namespace opd::qt
