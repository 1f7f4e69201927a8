#include "ui/window.h"

#include <utility>

namespace opd::ui {

namespace {

/// Marks that a handler runs, until the end of its scope however that comes.
class Handling {
  public:
    explicit Handling(bool& handling) : m_handling(handling) { m_handling = true; }
    ~Handling() { m_handling = false; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

  private:
    bool& m_handling;
};

} // namespace

// Runs one event. What it throws is reported and ends it; a Tab that it asked for follows when it is done.
bool Window::handle(const std::function<void()>& handler) {
    if (m_handling) { // a part of the event that runs already, which reports for it
        handler();
        return true;
    }
    bool succeeded = true;
    {
        const Handling handling{m_handling};
        m_pendingTab = false;
        try {
            handler();
        } catch (const std::exception& failure) {
            succeeded = false;
            m_pendingTab = false;
            if (!onFailure)
                throw;
            onFailure(failure);
        }
    }
    if (std::exchange(m_pendingTab, false) && m_open)
        pressTab(false);
    return succeeded;
}

void Window::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    // A window may be loaded again while a handler that unloaded it still runs further up; its new life starts afresh.
    m_handling = false;
    m_focus = nullptr;
    m_leftOut.clear();
    if (!onLoad)
        return;
    try {
        onLoad();
    } catch (...) {
        m_loaded = false;
        throw;
    }
}

void Window::unload() {
    if (!m_loaded)
        return;
    m_loaded = false;
    m_open = false;
    m_focus = nullptr;
    ++m_life;
    WindowView* const view = std::exchange(m_view, nullptr);
    try {
        if (onUnload)
            onUnload();
    } catch (...) { // the window is gone all the same, and its view must not stay behind
        if (view != nullptr)
            view->closed();
        throw;
    }
    if (view != nullptr)
        view->closed();
}

void Window::opened(WindowView& view) {
    m_view = &view;
    m_open = true;
    Control* const wanted = std::exchange(m_focus, nullptr);
    handle([&] { giveFocus(wanted != nullptr && wanted->canTakeFocus() ? wanted : neighbour(nullptr, false)); });
}

void Window::setStatus(const std::string& status) {
    if (status == m_status)
        return;
    m_status = status;
    tellView(*this, Aspect::Status);
}

void Window::sayLeftOut(const std::string& what) {
    if (what == m_leftOut)
        return;
    m_leftOut = what;
    tellView(*this, Aspect::Status);
}

void Window::foundNoRoom(int maxLength) {
    sayLeftOut("This field takes " + std::to_string(maxLength) + " characters. What is beyond that was left out.");
}

std::string Window::statusLine() const {
    if (!m_leftOut.empty())
        return m_leftOut;
    if (m_focus != nullptr && !m_focus->refusal().empty())
        return std::string{m_focus->refusal()};
    if (!m_status.empty())
        return m_status;
    const std::string here{m_focus != nullptr && !m_focus->hint.empty() ? m_focus->hint : hint};
    const std::string rest = stillToDo ? stillToDo() : std::string{};
    return here.empty() || rest.empty() ? here + rest : rest + "   " + here;
}

Control* Window::find(const std::string& name) const {
    for (Control* control : everything())
        if (control->name() == name)
            return control;
    return nullptr;
}

void Window::tellView(Control& control, Aspect aspect) {
    if (m_view != nullptr)
        m_view->changed(control, aspect);
}

void Window::tick(Timer& timer) {
    if (m_handling || !timer.running())
        return;
    handle([&] { timer.onTick(); });
}

void Window::requestClose() {
    if (m_handling)
        return;
    handle([&] {
        if (onCloseRequest)
            onCloseRequest();
        else
            unload();
    });
}

} // namespace opd::ui
