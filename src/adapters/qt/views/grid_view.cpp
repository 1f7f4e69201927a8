#include "adapters/qt/views/grid_view.h"

#include "adapters/qt/basics/qt_text.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace opd::qt {

namespace {

/// Widths are given for a small font whose characters were this many twips wide; they grow with the font that is used.
constexpr int twipsPerCharacter = 84;

/// Paints what is chosen in full while the list has the focus only: there is one place that the next key goes to. Tells
/// the mouse what a cut text reads in full.
class RowPainter final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const QString text = index.data().toString();
        const bool isCut = sizeHint(option, index).width() > option.rect.width();
        QToolTip::showText(event->globalPos(), isCut ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : QString(),
                           view);
        return true;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Active, option->widget != nullptr && option->widget->hasFocus());
    }
};

Qt::Alignment alignmentOf(const ui::Grid::Column& column) {
    return (column.rightAligned ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

int GridTable::rowCount(const QModelIndex& parent) const {
    return m_grid == nullptr || parent.isValid() ? 0 : m_grid->rowCount();
}

int GridTable::columnCount(const QModelIndex& parent) const {
    return m_grid == nullptr || parent.isValid() ? 0 : static_cast<int>(m_grid->columns().size());
}

QVariant GridTable::data(const QModelIndex& index, int role) const {
    if (m_grid == nullptr || !index.isValid())
        return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(alignmentOf(m_grid->columns().at(static_cast<std::size_t>(index.column()))));
    return role == Qt::DisplayRole ? toQt(m_grid->cell(index.row() + 1, index.column())) : QVariant();
}

QVariant GridTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (m_grid == nullptr || orientation != Qt::Horizontal)
        return {};
    const ui::Grid::Column& column = m_grid->columns().at(static_cast<std::size_t>(section));
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(alignmentOf(column));
    return role == Qt::DisplayRole ? toQt(column.title) : QVariant();
}

void GridTable::replaced() {
    beginResetModel();
    endResetModel();
}

void GridTable::detach() {
    beginResetModel();
    m_grid = nullptr;
    endResetModel();
}

EmptyTableClicks::EmptyTableClicks(QTableView& table, std::function<void()> doubleClicked)
    : m_table(table), m_doubleClicked(std::move(doubleClicked)) {
    m_table.viewport()->installEventFilter(this);
}

bool EmptyTableClicks::eventFilter(QObject* viewport, QEvent* event) {
    if (event->type() != QEvent::MouseButtonDblClick || m_table.model()->rowCount() > 0)
        return QObject::eventFilter(viewport, event);
    m_doubleClicked();
    return true;
}

GridView::GridView(ui::Grid& grid, QWidget* widget)
    : ControlView(grid, widget, nullptr), m_grid(grid), m_table(static_cast<QTableView*>(widget)), m_rows(grid),
      m_emptyClicks(*m_table, [this] {
          if (!isReleased())
              window().doubleClick(m_grid);
      }) {
    prepare();
    QObject::connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, m_table,
                     [this](const QModelIndex& current) {
                         if (!isWriting() && !isReleased() && current.isValid())
                             window().pickedCell(m_grid, current.row() + 1, current.column());
                     });
    // A click beside the cells takes the mark off the current one, which it still is.
    QObject::connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, m_table, [this] {
        if (!isWriting() && !isReleased() && !m_table->selectionModel()->hasSelection())
            write([this] { showCurrentCell(); });
        QMetaObject::invokeMethod(
            m_table, [this] { followMark(); }, Qt::QueuedConnection);
    });
    QObject::connect(m_table, &QTableView::clicked, m_table, [this] { window().click(m_grid); });
    QObject::connect(m_table, &QTableView::doubleClicked, m_table, [this] { window().doubleClick(m_grid); });
}

// The clerk's mouse and keys make a cell the current one, which marks it. An assistive program marks it and no more.
void GridView::followMark() {
    const QItemSelectionModel& marked = *m_table->selectionModel();
    if (isReleased() || !marked.hasSelection() || marked.isSelected(m_table->currentIndex()))
        return;
    const QModelIndex wanted = marked.selectedIndexes().first();
    if (window().requestFocus(m_grid))
        m_table->setCurrentIndex(wanted);
    else
        write([this] { showCurrentCell(); });
}

void GridView::prepare() {
    m_table->setModel(&m_rows);
    m_table->setItemDelegate(new RowPainter(m_table));
    m_table->setSelectionBehavior(m_grid.picksCells ? QAbstractItemView::SelectItems : QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    QHeaderView* rows = m_table->verticalHeader();
    rows->hide();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(m_table->fontMetrics().height() + 8);
    m_columns.emplace(*m_table);
}

void GridView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    write([&] {
        if (aspect == ui::Aspect::Table)
            showTable();
        else if (aspect == ui::Aspect::Cells)
            showCells();
        if (aspect == ui::Aspect::Table || aspect == ui::Aspect::Cells || aspect == ui::Aspect::CurrentCell)
            showCurrentCell();
    });
}

void GridView::showCells() {
    m_rows.replaced();
    m_columns->rowsReplaced();
}

void GridView::showTable() {
    m_rows.replaced();
    std::vector<int> widths;
    for (const ui::Grid::Column& column : m_grid.columns())
        widths.push_back(column.width * m_table->fontMetrics().averageCharWidth() / twipsPerCharacter);
    m_columns->give(std::move(widths));
    m_columns->rowsReplaced();
}

void GridView::showCurrentCell() {
    int column = m_grid.currentColumn();
    while (column < m_rows.columnCount() && m_table->isColumnHidden(column))
        ++column;
    const QModelIndex wanted = m_rows.index(m_grid.currentRow() - 1, column);
    const QModelIndex current = m_table->currentIndex();
    const bool there = m_grid.picksCells ? current == wanted : current.row() == wanted.row();
    if (!wanted.isValid())
        m_table->selectionModel()->clear();
    else if (!there || !m_table->selectionModel()->hasSelection())
        m_table->setCurrentIndex(wanted);
}

QString GridView::shownText() const {
    const QModelIndex current = m_table->currentIndex();
    const int column = m_grid.picksCells ? current.column() : 0;
    return current.isValid() ? m_rows.data(m_rows.index(current.row(), column), Qt::DisplayRole).toString() : QString();
}

void GridView::release() {
    ControlView::release();
    m_rows.detach();
}

} // namespace opd::qt
