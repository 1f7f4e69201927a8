#pragma once

#include "adapters/scripted/model_driver.h"
#include "script/player.h"
#include "ui/desktop.h"

#include <memory>
#include <vector>

namespace opd::adapters {

/// A desktop without a screen, worked by a script. When the script has ended or failed, or when there is none, every
/// window is unloaded without questions. Time passes only while the script waits.
class ScriptedDesktop final : public ui::Desktop {
  public:
    /// The player, which may be null, outlives the desktop.
    explicit ScriptedDesktop(script::Player* player);
    ~ScriptedDesktop() override;

    void showModal(ui::Window& window) override;
    void show(ui::Window& window) override;
    void waitForWindows() override;
    ui::Answer ask(const ui::Message& message) override;
    std::optional<std::filesystem::path> askFile(const ui::FileQuestion& question) override;
    void beep() override {}
    void setBusy(bool busy) override { m_busy = busy; }
    bool isBusy() const override { return m_busy; }
    void workEnded() override;
    std::optional<std::string> failure() const override;

  private:
    class View;

    void open(ui::Window& window);
    ui::Window* currentWindow() const;
    void play();
    void closeAll();
    void forgetClosed();
    void advance(int milliseconds);

    script::Player* m_player;
    ModelDriver m_driver;
    std::vector<std::unique_ptr<View>> m_views; ///< the topmost last; closed ones stay until the script's next step
    long m_now = 0;                             ///< milliseconds that the script has waited
    bool m_busy = false;
};

} // namespace opd::adapters
