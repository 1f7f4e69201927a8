#include "adapters/scripted/scripted_desktop.h"
#include "entry/composition.h"
#include "entry/environment.h"
#include "platform/com/library.h"
#include "platform/script/player.h"
#include "platform/ui/desktop_module.h"

#include <iostream>
#include <memory>
#include <stdexcept>

namespace opd::composition {

namespace {

ui::Desktop* makeQtDesktop(script::Player* player) {
    const com::Library module{moduleFolder() / com::libraryFileName("opd-desktop-qt")};
    const auto create = module.function<std::remove_pointer_t<ui::CreateDesktop>>(ui::createDesktopSymbol);
    ui::Desktop* made = create(player);
    if (made == nullptr)
        throw std::runtime_error("There is no display to show windows on.");
    return made;
}

ui::Desktop* makeDesktop(script::Player* player) {
    const std::string kind = environment::value(environment::desktop);
    if (kind.empty() || kind == "qt")
        return makeQtDesktop(player);
    if (kind != "scripted")
        throw std::runtime_error("There is no desktop \"" + kind + "\"; there are \"qt\" and \"scripted\".");
    if (player == nullptr)
        throw std::runtime_error("The scripted desktop needs an operator script.");
    return std::make_unique<adapters::ScriptedDesktop>(player).release();
}

std::unique_ptr<script::Player> makePlayer() {
    const std::string file = environment::value(environment::script);
    return file.empty() ? nullptr : std::make_unique<script::Player>(file, std::cout);
}

/// Stands for the real desktop, which it makes when it is first needed and keeps.
class DesktopOfProcess final : public ui::Desktop {
  public:
    void showModal(ui::Window& window) override { real().showModal(window); }
    void show(ui::Window& window) override { real().show(window); }
    void waitForWindows() override { real().waitForWindows(); }
    ui::Answer ask(const ui::Message& message) override { return real().ask(message); }
    std::optional<std::filesystem::path> askFile(const ui::FileQuestion& question) override {
        return real().askFile(question);
    }
    report::Output& output() override { return real().output(); }
    void beep() override { real().beep(); }
    void setBusy(bool busy) override { real().setBusy(busy); }
    bool isBusy() const override { return m_real != nullptr && m_real->isBusy(); }
    void showWaiting(bool waits) override {
        if (m_real != nullptr)
            m_real->showWaiting(waits);
    }
    std::optional<std::string> failure() const override { return m_real != nullptr ? m_real->failure() : std::nullopt; }

  private:
    ui::Desktop& real() {
        if (m_real == nullptr) {
            m_player = makePlayer();
            m_real = makeDesktop(m_player.get());
        }
        return *m_real;
    }

    std::unique_ptr<script::Player> m_player;

    /// Never taken down: a toolkit cannot be at the end of a process, when parts of it have gone already.
    ui::Desktop* m_real = nullptr;
};

} // namespace

ui::Desktop& desktop() {
    static DesktopOfProcess ofProcess;
    ui::Desktop::setOfProcess(&ofProcess);
    return ofProcess;
}

} // namespace opd::composition
