#include "adapters/scripted/scripted_desktop.h"

#include <algorithm>
#include <map>

namespace opd::adapters {

/// One shown window: knows its running timers and whether it is closed.
class ScriptedDesktop::View final : public ui::WindowView {
  public:
    View(ui::Window& window, ModelDriver& driver, const long& now) : m_window(window), m_driver(driver), m_now(now) {
        for (ui::Control* control : window.everything())
            if (control->kind() == ui::Kind::Timer)
                changed(*control, ui::Aspect::Running);
    }

    void changed(ui::Control& control, ui::Aspect aspect) override {
        if (aspect == ui::Aspect::Text && &control == m_window.focus())
            m_driver.contentChanged(control);
        if (aspect != ui::Aspect::Running)
            return;
        auto& timer = static_cast<ui::Timer&>(control);
        if (timer.running())
            m_due[&timer] = m_now + timer.interval();
        else
            m_due.erase(&timer);
    }

    void focusMoved(ui::Control*) override { m_driver.focusMoved(m_window); }
    void closed() override {
        m_closed = true;
        m_driver.closed(m_window);
    }

    bool isClosed() const { return m_closed; }
    ui::Window& window() const { return m_window; }

    /// The timer that is due first, or null.
    ui::Timer* nextTimer() const {
        const auto first = std::min_element(
            m_due.begin(), m_due.end(), [](const auto& left, const auto& right) { return left.second < right.second; });
        return first == m_due.end() ? nullptr : first->first;
    }

    long due(ui::Timer& timer) const { return m_due.at(&timer); }

    void fire(ui::Timer& timer) {
        m_due[&timer] += timer.interval();
        m_window.tick(timer);
    }

  private:
    ui::Window& m_window;
    ModelDriver& m_driver;
    const long& m_now;
    std::map<ui::Timer*, long> m_due;
    bool m_closed = false;
};

ScriptedDesktop::ScriptedDesktop(script::Player* player)
    : m_player(player),
      m_driver(
          *this, [this] { return currentWindow(); }, [this](int milliseconds) { advance(milliseconds); }) {}

ScriptedDesktop::~ScriptedDesktop() = default;

void ScriptedDesktop::open(ui::Window& window) {
    window.load();
    forgetClosed();
    m_views.push_back(std::make_unique<View>(window, m_driver, m_now));
    window.opened(*m_views.back());
}

void ScriptedDesktop::showModal(ui::Window& window) {
    open(window);
    while (window.isOpen())
        play();
    forgetClosed();
}

void ScriptedDesktop::show(ui::Window& window) {
    open(window);
}

void ScriptedDesktop::waitForWindows() {
    while (currentWindow() != nullptr)
        play();
    forgetClosed();
}

void ScriptedDesktop::play() {
    if (m_player == nullptr || m_player->ended())
        closeAll();
    else
        m_player->step(m_driver);
}

ui::Answer ScriptedDesktop::ask(const ui::Message& message) {
    if (m_player != nullptr)
        if (const std::optional<ui::Answer> answer = m_player->answerTo(message))
            return *answer;
    return ui::escapeAnswer(message.buttons);
}

std::optional<std::filesystem::path> ScriptedDesktop::askFile(const ui::FileQuestion& question) {
    return m_player == nullptr ? std::nullopt : m_player->fileFor(question);
}

void ScriptedDesktop::workEnded() {
    if (m_player != nullptr)
        m_player->end();
}

std::optional<std::string> ScriptedDesktop::failure() const {
    return m_player == nullptr ? std::nullopt : m_player->failure();
}

ui::Window* ScriptedDesktop::currentWindow() const {
    for (auto view = m_views.rbegin(); view != m_views.rend(); ++view)
        if (!(*view)->isClosed())
            return &(*view)->window();
    return nullptr;
}

void ScriptedDesktop::closeAll() {
    while (ui::Window* window = currentWindow())
        window->unload();
}

void ScriptedDesktop::forgetClosed() {
    std::erase_if(m_views, [](const auto& view) { return view->isClosed(); });
}

void ScriptedDesktop::advance(int milliseconds) {
    const long end = m_now + milliseconds;
    while (true) {
        ui::Window* const window = currentWindow();
        const auto view = std::find_if(m_views.begin(), m_views.end(), [window](const auto& shown) {
            return !shown->isClosed() && &shown->window() == window;
        });
        ui::Timer* const timer = view == m_views.end() ? nullptr : (*view)->nextTimer();
        if (timer == nullptr || (*view)->due(*timer) > end)
            break;
        m_now = (*view)->due(*timer);
        (*view)->fire(*timer);
    }
    m_now = end;
}

} // namespace opd::adapters
