#pragma once

#include "script/driver.h"
#include "ui/desktop.h"
#include "ui/line_edit.h"

#include <functional>
#include <map>

namespace opd::adapters {

/// A script's hands and eyes on the models themselves: input goes to the windows as an adapter with a screen would
/// forward it, and what the models say is what the clerk sees.
class ModelDriver final : public script::Driver {
  public:
    /// `currentWindow` gives the topmost open window or null, `advance` lets that many milliseconds pass.
    ModelDriver(ui::Desktop& desktop, std::function<ui::Window*()> currentWindow, std::function<void(int)> advance)
        : m_desktop(desktop), m_currentWindow(std::move(currentWindow)), m_advance(std::move(advance)) {}

    ui::Window* currentWindow() override { return m_currentWindow(); }
    void press(const script::KeyStroke& key) override;
    void focus(ui::Control& control) override { control.window().requestFocus(control); }
    void click(ui::Control& control) override { control.window().click(control); }
    void doubleClick(ui::Grid& grid) override { grid.window().doubleClick(grid); }
    void pickEntry(ui::ComboBox& box, int index) override { box.window().picked(box, index); }
    void pickPage(ui::Tabs& tabs, int index) override { tabs.window().pickPage(tabs, index); }
    void pickCell(ui::Grid& grid, int row, int column) override;
    void setPicker(ui::DatePicker& picker, const DateTime& value) override { picker.window().edited(picker, value); }
    void selectContent() override;
    void setClipboard(const std::string& text) override { m_clipboard = text; }
    std::string selection() override;
    std::string shownText(ui::Control& control) override { return control.shownText(); }
    std::string statusLine() override {
        return currentWindow() == nullptr ? std::string{} : currentWindow()->statusLine();
    }
    bool isShown(ui::Control& control) override { return control.isShown(); }
    bool isEnabled(ui::Control& control) override { return control.isUsable(); }
    bool isChecked(ui::Control& control) override;
    bool isNeeded(ui::Control& control) override { return control.isNeeded(); }
    bool hasFocus(ui::Control& control) override { return control.window().focus() == &control; }
    int rowCount(ui::Grid& grid) override { return grid.rowCount(); }
    std::string cell(ui::Grid& grid, int row, int column) override { return grid.cell(row, column); }
    void wait(int milliseconds) override { m_advance(milliseconds); }
    void screenshot(const std::string&) override {}

    /// The focus of a window is at another control now, whose content is selected.
    void focusMoved(ui::Window& window);

    /// The content of the control that has the focus was set, by the clerk's editing or by program.
    void contentChanged(ui::Control& control);

    /// The window is gone.
    void closed(ui::Window& window) { m_edits.erase(&window); }

  private:
    void edit(ui::Window& window, const ui::KeyStroke& key);
    void paste(ui::Window& window);
    void takeOver(ui::Window& window);
    void load(ui::Window& window);

    ui::Desktop& m_desktop;
    std::function<ui::Window*()> m_currentWindow;
    std::function<void(int)> m_advance;
    std::map<const ui::Window*, ui::LineEdit> m_edits; ///< of the field that has the focus in each window
    std::string m_clipboard;
};

} // namespace opd::adapters
