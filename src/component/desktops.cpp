#include "adapters/scripted/scripted_desktop.h"
#include "base/os/library.h"
#include "component/composition.h"
#include "component/environment.h"
#include "component/stored_places.h"
#include "script/desktop_module.h"
#include "script/player.h"

#include <iostream>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

namespace opd::composition {

namespace {

std::string wantedName() {
    const std::string name = environment::value(environment::desktop);
    return name.empty() ? "qt" : name;
}

bool wantsRealWindows() {
    return wantedName() != "scripted";
}

std::filesystem::path moduleOf(const std::string& desktopName) {
    if (std::filesystem::path file = ui::desktopModule(moduleFolder(), desktopName); !file.empty())
        return file;
    throw std::runtime_error("There is no desktop \"" + desktopName + "\" beside this program.");
}

ui::Desktop* makeRealDesktop(script::Player* player) {
    const os::Library module{moduleOf(wantedName())};
    const auto create = module.function<std::remove_pointer_t<ui::CreateDesktop>>(ui::createDesktopSymbol);
    static StoredPlaces places{settings::IniStore{}};
    // A script finds every window as a new workstation shows it.
    ui::Desktop* made = create(player, player == nullptr ? &places : nullptr);
    if (made == nullptr)
        throw std::runtime_error("There is no display to show windows on.");
    return made;
}

/// Real windows belong to the thread that showed the first one. They are never taken down: a toolkit cannot be at the
/// end of a process, when parts of it have gone already.
void claimScreen() {
    static std::mutex mutex;
    static std::thread::id owner;
    const std::lock_guard<std::mutex> lock(mutex);
    if (owner != std::thread::id{} && owner != std::this_thread::get_id())
        throw std::runtime_error("Another thread of this program shows the windows already.");
    owner = std::this_thread::get_id();
}

std::unique_ptr<ui::Desktop> makeScriptedDesktop(script::Player* player) {
    if (player == nullptr)
        throw std::runtime_error("The scripted desktop needs an operator script.");
    return std::make_unique<adapters::ScriptedDesktop>(player);
}

std::unique_ptr<script::Player> makePlayer() {
    const std::string file = environment::value(environment::script);
    if (file.empty())
        return nullptr;
    auto player = std::make_unique<script::Player>(file, std::cout, composition::clock().now());
    if (const std::string journal = environment::value(environment::journal); !journal.empty())
        player->keepJournal(journal);
    return player;
}

/// Stands for the real desktop, which it makes when it is first needed and keeps.
class DesktopOfThread final : public ui::Desktop {
  public:
    DesktopOfThread() { ui::Desktop::setOfThread(this); }
    ~DesktopOfThread() override { ui::Desktop::setOfThread(nullptr); }
    DesktopOfThread(const DesktopOfThread&) = delete;
    DesktopOfThread& operator=(const DesktopOfThread&) = delete;

    void showModal(ui::Window& window) override {
        showNotice();
        real().showModal(window);
    }
    void show(ui::Window& window) override { real().show(window); }
    void waitForWindows() override { real().waitForWindows(); }
    ui::Answer ask(const ui::Message& message) override {
        const ui::Answer answer = real().ask(message);
        showNotice();
        return answer;
    }
    std::optional<std::filesystem::path> askFile(const ui::FileQuestion& question) override {
        return real().askFile(question);
    }
    report::Output& output() override { return real().output(); }
    void beep() override { real().beep(); }
    void setBusy(bool busy) override { real().setBusy(busy); }
    bool showWaiting(std::chrono::milliseconds lasted, bool mayBeGivenUp) override {
        if (m_real == nullptr && mayBeGivenUp && lasted >= offeredAfter)
            makeForWaiting();
        return m_real == nullptr || m_real->showWaiting(lasted, mayBeGivenUp);
    }
    void endWaiting() override {
        if (m_real != nullptr)
            m_real->endWaiting();
    }
    bool isBusy() const override { return m_real != nullptr && m_real->isBusy(); }
    void workEnded() override {
        if (m_real != nullptr && !environment::value(environment::wholeScript).empty())
            m_real->workEnded();
    }
    std::optional<std::string> failure() const override { return m_real != nullptr ? m_real->failure() : std::nullopt; }

    /// Keeps a text until the clerk can read it. A script has no reader, and answers nothing that it does not expect.
    void notice(const std::string& text) {
        if (wantsRealWindows() && environment::value(environment::script).empty())
            m_notice = text;
    }

  private:
    ui::Desktop& real() {
        if (m_real == nullptr)
            make();
        return *m_real;
    }

    /// The first login comes before the first window, and a clerk who waits for it is to see why. Without a screen
    /// there is nobody to be told, and what is wrong with it is said when the first window is to be shown.
    void makeForWaiting() {
        try {
            if (wantsRealWindows() && environment::value(environment::script).empty())
                make();
        } catch (const std::exception&) {
            m_real = nullptr;
        }
    }

    void make() {
        const bool onScreen = wantsRealWindows();
        if (onScreen)
            claimScreen();
        m_player = makePlayer();
        if (onScreen) {
            m_real = makeRealDesktop(m_player.get());
            return;
        }
        m_scripted = makeScriptedDesktop(m_player.get());
        m_real = m_scripted.get();
    }

    void showNotice() {
        if (const std::string text = std::exchange(m_notice, {}); !text.empty())
            real().ask({.text = text, .icon = ui::Icon::Exclamation});
    }

    std::unique_ptr<script::Player> m_player;
    std::unique_ptr<ui::Desktop> m_scripted; ///< ends with the thread
    ui::Desktop* m_real = nullptr;
    std::string m_notice;
};

DesktopOfThread& ofThread() {
    thread_local DesktopOfThread desktop;
    return desktop;
}

} // namespace

ui::Desktop& desktop() {
    return ofThread();
}

void tellUser(const std::string& text) {
    std::cerr << "opd-registration: " + text + "\n" << std::flush;
    ofThread().notice(text);
}

} // namespace opd::composition
