#include "adapters/qt/scroll_page.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QScrollBar>

namespace opd::qt {

namespace {

constexpr int closest = 3; ///< between two rows of fields, in pixels
constexpr int usual = 5;
constexpr int furthest = 16;

constexpr int around = 24; ///< what is shown of the surroundings of a widget that is scrolled to

} // namespace

ScrollPage::ScrollPage(QWidget* parent) : QScrollArea(parent) {
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
}

QSize ScrollPage::sizeHint() const {
    return widget() == nullptr ? QScrollArea::sizeHint() : widget()->sizeHint();
}

QSize ScrollPage::minimumSizeHint() const {
    if (widget() == nullptr)
        return QScrollArea::minimumSizeHint();
    return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), 8 * fontMetrics().height()};
}

void ScrollPage::resizeEvent(QResizeEvent* event) {
    spreadRows();
    QScrollArea::resizeEvent(event);
    QWidget* const focus = QApplication::focusWidget(); // what is typed into must be seen
    if (focus != nullptr && isAncestorOf(focus))
        scrollIntoSight(*focus);
}

void ScrollPage::showEvent(QShowEvent* event) {
    spreadRows();
    QScrollArea::showEvent(event);
}

bool ScrollPage::eventFilter(QObject* object, QEvent* event) {
    const bool handled = QScrollArea::eventFilter(object, event);
    if (object == widget() && event->type() == QEvent::LayoutRequest)
        spreadRows(); // a row has appeared or gone
    return handled;
}

/// Has the layouts of a page and what stands in it forget the sizes that they remember.
void ScrollPage::forgetSizes() {
    for (QLayout* layout : widget()->findChildren<QLayout*>()) {
        layout->invalidate();
        if (layout->parentWidget() != widget())
            layout->parentWidget()->updateGeometry();
    }
}

/// The height that the content needs with this distance between its rows; nothing is moved for the question.
int ScrollPage::heightWithSpacing(int spacing) {
    if (spacing != m_spacing) {
        for (QGridLayout* rows : widget()->findChildren<QGridLayout*>())
            rows->setVerticalSpacing(spacing);
        forgetSizes();
    }
    m_spacing = spacing;
    return widget()->minimumSizeHint().height();
}

/// The largest distance with which the content has its height within the room; the usual one where it has to scroll.
int ScrollPage::spacingFor(int room) {
    if (heightWithSpacing(closest) > room)
        return usual;
    int fits = closest;
    for (int tooMuch = furthest + 1; tooMuch - fits > 1;) {
        const int tried = (fits + tooMuch) / 2;
        (heightWithSpacing(tried) <= room ? fits : tooMuch) = tried;
    }
    return fits;
}

// A page that is not seen is spread when it is.
void ScrollPage::spreadRows() {
    if (!isVisible() || widget() == nullptr || widget()->layout() == nullptr)
        return;
    const int room = viewport()->height();
    if (room == m_room && m_spacing >= 0 && heightWithSpacing(m_spacing) == m_height)
        return; // nothing has changed but what was done here
    m_height = heightWithSpacing(spacingFor(room));
    m_room = room;
    widget()->layout()->activate(); // once, for the spacing that was found
}

// The toolkit's own way is content when it sees the text cursor.
void scrollIntoSight(QWidget& widget) {
    for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        auto* const page = qobject_cast<ScrollPage*>(parent);
        if (page == nullptr)
            continue;
        const QRect place(widget.mapTo(page->widget(), QPoint()), widget.size());
        const QRect seen(-page->widget()->pos(), page->viewport()->size());
        if (!seen.contains(place.adjusted(0, -around, 0, around) & page->widget()->rect()))
            page->ensureVisible(place.center().x(), place.center().y(), around, place.height() / 2 + around);
    }
}

} // namespace opd::qt
