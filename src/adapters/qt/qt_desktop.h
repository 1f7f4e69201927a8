#pragma once

#include "adapters/qt/activation.h"
#include "adapters/qt/form_stock.h"
#include "adapters/qt/held_keys.h"
#include "adapters/qt/input_filter.h"
#include "adapters/qt/qt_driver.h"
#include "adapters/qt/report/qt_output.h"
#include "adapters/qt/type_ahead.h"
#include "adapters/qt/waiting.h"
#include "script/player.h"
#include "ui/desktop.h"
#include "ui/window_places.h"

#include <memory>
#include <vector>

class QMessageBox;

namespace opd::qt {

class WindowShell;

/// Real windows, worked by a clerk, or by a script when there is one. A window is on the screen from the moment it is
/// shown until its model is unloaded.
class QtDesktop final : public ui::Desktop {
  public:
    /// Needs a QApplication. `player` may be null and must outlive the desktop.
    explicit QtDesktop(script::Player* player = nullptr, ui::WindowPlaces* places = nullptr);

    /// Unloads the windows that are still shown.
    ~QtDesktop() override;

    void showModal(ui::Window& window) override;
    void show(ui::Window& window) override;
    void waitForWindows() override;
    ui::Answer ask(const ui::Message& message) override;
    std::optional<std::filesystem::path> askFile(const ui::FileQuestion& question) override;
    report::Output& output() override { return m_output; }
    void beep() override;
    void setBusy(bool busy) override;
    bool isBusy() const override { return m_busy; }
    bool showWaiting(std::chrono::milliseconds lasted, bool mayBeGivenUp) override {
        return m_waiting.draw(mayBeGivenUp && lasted >= offeredAfter);
    }
    void endWaiting() override { m_waiting.over(); }
    void workEnded() override;
    std::optional<std::string> failure() const override;

    /// Builds now what would be built while the clerk pauses, so that the largest form opens at once.
    void prepareForms() { m_stock.prepare(); }

    /// The window opened last of those that are on the screen, or null.
    WindowShell* currentShell() const;

  private:
    WindowShell* open(ui::Window& window, bool modal);
    void handleInput();
    void playOn();
    bool answerByScript(QMessageBox& box, const ui::Message& message);
    void giveUp();
    void closeEverything();

    script::Player* m_player;
    ui::WindowPlaces* m_places;
    QtDriver m_driver{*this};
    QtOutput m_output;
    InputFilter m_input{*this};
    Activation m_activation;
    HeldKeys m_heldKeys;
    Waiting m_waiting;
    std::unique_ptr<TypeAhead> m_typeAhead; ///< where keys are sent to windows by a display that a clerk types at
    FormStock m_stock;
    std::vector<WindowShell*> m_shells;
    bool m_busy = false;
    bool m_over = false; // the script has ended or failed: nothing is shown any more
};

} // namespace opd::qt
