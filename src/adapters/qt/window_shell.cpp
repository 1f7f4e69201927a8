#include "adapters/qt/window_shell.h"

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/binder.h"
#include "adapters/qt/forms.h"
#include "adapters/qt/look/marks.h"
#include "adapters/qt/look/restyle.h"
#include "adapters/qt/scroll_page.h"
#include "adapters/qt/style.h"
#include "adapters/qt/views/cell_float.h"
#include "ui/spoken_names.h"

#include <QCloseEvent>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QWindow>

#include <algorithm>
#include <stdexcept>

namespace opd::qt {

namespace {

/// How much larger a window is with its frame.
QSize frameOf(const QWidget& window) {
    return window.frameGeometry().size() - window.size();
}

/// Before it is shown a window does not know how wide its frame is; the window that closed last tells.
QSize knownFrame(8, 34);

constexpr const char* maximised = "maximised";

/// A size as it is remembered: "1240x690", perhaps with " maximised" behind it. Empty when the text is none.
QSize sizeIn(const QString& place) {
    const QStringList sides = place.section(' ', 0, 0).split('x');
    return sides.size() == 2 ? QSize(sides.first().toInt(), sides.last().toInt()) : QSize();
}

} // namespace

WindowShell::WindowShell(const std::string& form) {
    if (!buildForm(form, *this))
        throw std::logic_error("There is no form for the window " + form + ".");
    dress(*this);
}

WindowShell::WindowShell(ui::Window& window, ui::WindowPlaces* places) : WindowShell(window.name()) {
    bindTo(window, places);
}

void WindowShell::bindTo(ui::Window& window, ui::WindowPlaces* places) {
    m_window = &window;
    m_places = places;
    m_open = true;
    m_views = bind(window, *this);
    for (const auto& view : m_views) {
        m_byControl[&view->control()] = view.get();
        if (view->widget() != nullptr)
            m_byWidget[view->widget()] = view.get();
    }
    for (QLabel* label : findChildren<QLabel*>())
        if (label->property("decoration") == QStringLiteral("statusLine"))
            m_statusLine = label;
    floatOverCells();
    if (m_window->defaultButton != nullptr) // the model presses it; this tells so
        static_cast<QPushButton*>(viewOf(*m_window->defaultButton)->widget())->setDefault(true);
    nameAll();
    showAll();
}

WindowShell::~WindowShell() = default;

void WindowShell::floatOverCells() {
    for (const auto& view : m_views)
        if (const ui::Grid* grid = view->control().floatsOver)
            if (const ControlView* below = viewOf(*grid); below != nullptr && view->widget() != nullptr)
                new CellFloat(*view->widget(), static_cast<QTableView&>(*below->widget())); // the table owns it
}

void WindowShell::nameAll() {
    const ui::SpokenNames names(*m_window);
    for (const auto& view : m_views)
        view->setSpoken(toQt(names.of(view->control())), toQt(ui::tipOf(view->control(), names)));
}

void WindowShell::showAll() {
    setWindowTitle(toQt(m_window->caption()));
    for (const auto& view : m_views)
        for (const ui::Aspect aspect :
             {ui::Aspect::Caption, ui::Aspect::Items, ui::Aspect::Text, ui::Aspect::Checked, ui::Aspect::Table,
              ui::Aspect::CurrentPage, ui::Aspect::Document, ui::Aspect::Zoom, ui::Aspect::Enabled, ui::Aspect::Visible,
              ui::Aspect::Running, ui::Aspect::Image, ui::Aspect::Refusal, ui::Aspect::Need})
            view->show(aspect);
}

void WindowShell::present(bool modal, WindowShell* served) {
    setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    if (served != nullptr) {
        setWindowFlag(Qt::Dialog);
        setWindowFlag(Qt::WindowMaximizeButtonHint);
        create();
        windowHandle()->setTransientParent(served->windowHandle()); // window managers keep it above that one
    }
    fitScreen(served);
    QWidget::show();
    m_window->opened(*this);
}

void WindowShell::fitScreen(const WindowShell* served) {
    for (QWidget* widget : findChildren<QWidget*>())
        widget->ensurePolished(); // what the views have added does not know its size before
    layout()->activate();
    const QRect available = (served == nullptr ? this : served)->screen()->availableGeometry();
    const QSize frame = served == nullptr ? knownFrame : frameOf(*served);
    const QString remembered = m_places == nullptr ? QString() : toQt(m_places->placeOf(m_window->name()));
    const QSize wanted = sizeIn(remembered).isEmpty() ? size().expandedTo(sizeHint()) : sizeIn(remembered);
    resize(wanted.expandedTo(minimumSizeHint()).boundedTo(available.size() - frame));
    QRect place(QPoint(), size() + frame);
    place.moveCenter(served == nullptr ? available.center() : served->frameGeometry().center());
    place.moveRight(std::min(place.right(), available.right()));
    place.moveBottom(std::min(place.bottom(), available.bottom()));
    move(std::max(place.left(), available.left()), std::max(place.top(), available.top()));
    if (remembered.endsWith(QLatin1String(maximised)))
        setWindowState(Qt::WindowMaximized);
}

void WindowShell::rememberPlace() {
    if (m_places == nullptr || !isVisible())
        return;
    const QSize usual = isMaximized() ? normalGeometry().size() : size();
    const QString place = QStringLiteral("%1x%2").arg(usual.width()).arg(usual.height());
    m_places->keep(m_window->name(), fromQt(isMaximized() ? place + ' ' + maximised : place));
}

ControlView* WindowShell::viewOf(const ui::Control& control) const {
    const auto found = m_byControl.find(&control);
    return found == m_byControl.end() ? nullptr : found->second;
}

ControlView* WindowShell::viewAt(const QWidget* widget) const {
    for (; widget != nullptr && widget != this; widget = widget->parentWidget())
        if (const auto found = m_byWidget.find(widget); found != m_byWidget.end())
            return found->second;
    return nullptr;
}

ControlView* WindowShell::focusView() const {
    return m_open && m_window->focus() != nullptr ? viewOf(*m_window->focus()) : nullptr;
}

void WindowShell::changed(ui::Control& control, ui::Aspect aspect) {
    if (aspect == ui::Aspect::Status)
        showStatus();
    else if (&control == m_window)
        setWindowTitle(toQt(m_window->caption()));
    else if (ControlView* view = viewOf(control))
        view->show(aspect);
    if (aspect == ui::Aspect::CurrentPage)
        followPage();
    else if (aspect == ui::Aspect::Caption && &control != m_window)
        nameAll();
    if (aspect != ui::Aspect::Status)
        showStatus(); // what is still to be done may be less or more by any change
}

void WindowShell::showStatus() {
    if (m_statusLine == nullptr || !m_open)
        return;
    const ui::Control* focus = m_window->focus();
    const bool isAlert = focus != nullptr && !focus->refusal().empty();
    if (isAlert != isMarked(m_statusLine, "alert")) {
        m_statusLine->setProperty("alert", isAlert);
        restyle(*m_statusLine);
    }
    m_statusLine->setText(toQt(m_window->statusLine()));
}

// Turning a page makes Qt look for a new focus; the model has the say.
void WindowShell::followPage() {
    const ControlView* view = focusView();
    if (view != nullptr && view->widget()->isVisible()) {
        view->widget()->setFocus(Qt::OtherFocusReason);
        scrollIntoSight(*view->widget());
    } else {
        setFocus(Qt::OtherFocusReason);
    }
}

void WindowShell::focusMoved(ui::Control* control) {
    showStatus();
    ControlView* view = control == nullptr ? nullptr : viewOf(*control);
    if (view == nullptr) {
        setFocus(Qt::OtherFocusReason);
        return;
    }
    view->widget()->setFocus(Qt::OtherFocusReason);
    scrollIntoSight(*view->widget());
    view->selectContent();
}

void WindowShell::closed() {
    m_open = false;
    rememberPlace();
    knownFrame = frameOf(*this);
    for (const auto& view : m_views)
        view->release();
    emit gone();
    hide();
    // A handler of this very window may have unloaded it: its widgets must outlive the event being handled.
    deleteLater();
}

void WindowShell::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (m_open)
        m_window->requestClose();
}

} // namespace opd::qt
