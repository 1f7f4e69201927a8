#pragma once

#include "base/clock/date_time.h"
#include "ui/controls.h"
#include "ui/grid.h"
#include "ui/window.h"

#include <string>

namespace opd::script {

using ui::KeyStroke;

/// The hands and eyes of a script on one kind of desktop. Hands give the raw input that a clerk would give and obey the
/// desktop's rules; eyes report what the clerk would see there, not what the models say.
class Driver {
  public:
    virtual ~Driver() = default;

    /// The window that has the clerk's attention, or null when none is shown.
    virtual ui::Window* currentWindow() = 0;

    virtual void press(const KeyStroke& key) = 0;

    /// Asks for the focus as a mouse press on the control would, without clicking it. The control that has the focus
    /// may keep it.
    virtual void focus(ui::Control& control) = 0;

    virtual void click(ui::Control& control) = 0;
    virtual void doubleClick(ui::Grid& grid) = 0;
    virtual void pickEntry(ui::ComboBox& box, int index) = 0;
    virtual void pickPage(ui::Tabs& tabs, int index) = 0;

    /// Clicks a cell, which becomes the current one.
    virtual void pickCell(ui::Grid& grid, int row, int column) = 0;
    virtual void setPicker(ui::DatePicker& picker, const DateTime& value) = 0;

    /// Selects what the field that has the focus holds, so that the next character replaces it.
    virtual void selectContent() = 0;

    /// What Ctrl+V puts in from now on.
    virtual void setClipboard(const std::string& text) = 0;

    /// What is selected in the field that has the focus.
    virtual std::string selection() = 0;

    virtual std::string shownText(ui::Control& control) = 0;

    /// What the status line of the current window reads; empty where it has none.
    virtual std::string statusLine() = 0;

    virtual bool isShown(ui::Control& control) = 0;
    virtual bool isEnabled(ui::Control& control) = 0;
    virtual bool isChecked(ui::Control& control) = 0;
    virtual bool isNeeded(ui::Control& control) = 0; ///< is marked as still missing
    virtual bool hasFocus(ui::Control& control) = 0;
    virtual int rowCount(ui::Grid& grid) = 0;
    virtual std::string cell(ui::Grid& grid, int row, int column) = 0;

    /// Lets this much time pass for the timers.
    virtual void wait(int milliseconds) = 0;

    /// Writes a picture of the current window; a desktop without pictures does nothing.
    virtual void screenshot(const std::string& file) = 0;
};

} // namespace opd::script
