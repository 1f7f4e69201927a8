#include "adapters/qt/views/report_pane_view.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/report/paged_document.h"
#include "adapters/qt/report/printing.h"

#include <QGraphicsView>
#include <QHBoxLayout>
#include <QListWidget>
#include <QScrollBar>
#include <QShortcut>

#include <cmath>

namespace opd::qt {

namespace {

constexpr double zoomStep = 1.25;
constexpr int groupListWidth = 180;

} // namespace

ReportPaneView::ReportPaneView(ui::ReportPane& pane, QWidget* widget)
    : ControlView(pane, widget, nullptr), m_pane(pane), m_groups(new QListWidget(widget)),
      m_preview(printing().makePreview(*widget)) {
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_groups);
    row->addWidget(&m_preview->widget(), 1);
    m_groups->setFixedWidth(groupListWidth);
    m_groups->setFocusPolicy(Qt::NoFocus);
    for (QWidget* part : m_preview->widget().findChildren<QWidget*>())
        part->setFocusPolicy(Qt::NoFocus);
    QObject::connect(m_groups, &QListWidget::currentRowChanged, m_groups, [this](int group) {
        if (!isReleased() && m_pages && group >= 0)
            m_pane.turnTo(m_pages->pageOfGroup(group));
    });
    bindKeys();
}

ReportPaneView::~ReportPaneView() = default;

void ReportPaneView::bindKeys() {
    const auto bindKey = [this](Qt::Key key, auto action) {
        auto* shortcut = new QShortcut(key, widget());
        QObject::connect(shortcut, &QShortcut::activated, widget(), [this, action] {
            if (!isReleased())
                action();
        });
    };
    bindKey(Qt::Key_Down, [this] { scroll(scrollBar()->singleStep()); });
    bindKey(Qt::Key_Up, [this] { scroll(-scrollBar()->singleStep()); });
    bindKey(Qt::Key_PageDown, [this] { scrollViews(1); });
    bindKey(Qt::Key_PageUp, [this] { scrollViews(-1); });
    bindKey(Qt::Key_Home, [this] { m_pane.turnTo(1); });
    bindKey(Qt::Key_End, [this] { m_pane.turnTo(m_pane.pageCount()); });
}

QScrollBar* ReportPaneView::scrollBar() const {
    return m_preview->widget().findChild<QGraphicsView*>()->verticalScrollBar();
}

void ReportPaneView::scroll(int amount) {
    scrollBar()->setValue(scrollBar()->value() + amount);
}

/// Moves by what is in view; beyond the end of a page lies the next one.
void ReportPaneView::scrollViews(int direction) {
    QScrollBar* bar = scrollBar();
    const int before = bar->value();
    scroll(direction * bar->pageStep());
    if (bar->value() == before)
        m_pane.turnTo(m_pane.page() + direction);
}

void ReportPaneView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::Document)
        showDocument();
    else if (aspect == ui::Aspect::ReportPage)
        m_preview->turnTo(m_pane.page());
    else if (aspect == ui::Aspect::Zoom)
        showZoom();
}

void ReportPaneView::showDocument() {
    const report::Document* document = m_pane.document();
    m_groups->setVisible(m_pane.showsGroupTree);
    m_groups->clear();
    if (document == nullptr)
        return;
    for (const std::string& group : document->groups)
        m_groups->addItem(toQt(group));
    m_pages = std::make_shared<const PagedDocument>(*document);
    m_preview->show(m_pages);
    m_pane.laidOut(m_pages->pageCount());
}

QString ReportPaneView::shownText() const {
    return m_pages ? toQt(m_pane.shownText()) : QString();
}

void ReportPaneView::showZoom() {
    m_preview->zoom(m_pane.fit() == ui::ReportPane::Fit::WholePage, std::pow(zoomStep, m_pane.zoomSteps()));
}

} // namespace opd::qt
