#include "adapters/qt/views/container_views.h"

#include "adapters/qt/basics/qt_text.h"

#include <QGroupBox>
#include <QTabBar>
#include <QTabWidget>

namespace opd::qt {

void FrameView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    auto* box = qobject_cast<QGroupBox*>(widget());
    if (aspect == ui::Aspect::Caption && box != nullptr)
        box->setTitle(toQt(control().caption()));
}

QString FrameView::shownText() const {
    const auto* box = qobject_cast<QGroupBox*>(widget());
    return box == nullptr ? QString() : box->title();
}

PageView::PageView(ui::Control& shown, QWidget* shownIn)
    : ControlView(shown, shownIn, nullptr), m_tabs(qobject_cast<QTabWidget*>(shownIn->parentWidget()->parentWidget())) {
}

void PageView::show(ui::Aspect aspect) {
    const int tab = m_tabs->indexOf(widget());
    if (aspect == ui::Aspect::Caption)
        m_tabs->setTabText(tab, toQt(control().caption()));
    else if (aspect == ui::Aspect::Enabled)
        m_tabs->setTabEnabled(tab, control().enabled());
    else if (aspect == ui::Aspect::Visible)
        m_tabs->setTabVisible(tab, control().visible());
}

void PageView::setSpoken(const QString& name, const QString& tip) {
    widget()->setAccessibleName(name);
    m_tabs->setTabToolTip(m_tabs->indexOf(widget()), tip);
}

QString PageView::shownText() const {
    return m_tabs->tabText(m_tabs->indexOf(widget()));
}

TabsView::TabsView(ui::Tabs& tabs, QWidget* widget)
    : ControlView(tabs, widget, nullptr), m_pages(tabs), m_tabs(static_cast<QTabWidget*>(widget)) {
    m_tabs->setFocusPolicy(Qt::NoFocus);
    m_tabs->tabBar()->setFocusPolicy(Qt::NoFocus);
    QObject::connect(m_tabs, &QTabWidget::currentChanged, m_tabs, [this](int page) { follow(page); });
}

// The mouse asks the model before a page is turned; an assistive program turns it and is asked about behind that. When
// the current page goes, the toolkit shows another one, which the model has its own say about.
void TabsView::follow(int page) {
    const ui::Page& left = *m_pages.pages().at(static_cast<std::size_t>(m_pages.current()));
    if (isWriting() || isReleased() || page < 0 || page == m_pages.current() || !left.visible() || !left.enabled())
        return;
    window().pickPage(m_pages, page);
    if (!isReleased())
        show(ui::Aspect::CurrentPage);
}

void TabsView::show(ui::Aspect aspect) {
    ControlView::show(aspect);
    if (aspect == ui::Aspect::CurrentPage)
        write([this] { m_tabs->setCurrentIndex(m_pages.current()); });
}

void TabsView::setSpoken(const QString& name, const QString& tip) {
    ControlView::setSpoken(name, tip);
    m_tabs->tabBar()->setAccessibleName(name);
}

QString TabsView::shownText() const {
    return m_tabs->tabText(m_tabs->currentIndex());
}

TimerView::TimerView(ui::Timer& timer) : ControlView(timer, nullptr, nullptr), m_timer(timer) {
    QObject::connect(&m_clock, &QTimer::timeout, &m_clock, [this] { window().tick(m_timer); });
}

void TimerView::show(ui::Aspect aspect) {
    if (aspect != ui::Aspect::Running)
        return;
    if (m_timer.running())
        m_clock.start(m_timer.interval());
    else
        m_clock.stop();
}

void TimerView::release() {
    ControlView::release();
    m_clock.stop();
}

} // namespace opd::qt
