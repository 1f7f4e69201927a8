#pragma once

#include "script/driver.h"

class QTableView;
class QWidget;

namespace opd::qt {

class ControlView;
class QtDesktop;
class WindowShell;

/// Hands that send real keys and clicks to the native windows, and eyes that read the widgets.
class QtDriver final : public script::Driver {
  public:
    explicit QtDriver(QtDesktop& desktop) : m_desktop(desktop) {}

    ui::Window* currentWindow() override;
    void press(const script::KeyStroke& key) override;
    void focus(ui::Control& control) override;
    void click(ui::Control& control) override;
    void doubleClick(ui::Grid& grid) override;
    void pickEntry(ui::ComboBox& box, int index) override;
    void pickPage(ui::Tabs& tabs, int index) override;
    void pickCell(ui::Grid& grid, int row, int column) override;
    void setPicker(ui::DatePicker& picker, const DateTime& value) override;
    void selectContent() override;
    void setClipboard(const std::string& text) override;
    std::string selection() override;
    std::string shownText(ui::Control& control) override;
    std::string statusLine() override;
    bool isShown(ui::Control& control) override;
    bool isEnabled(ui::Control& control) override;
    bool isChecked(ui::Control& control) override;
    bool isNeeded(ui::Control& control) override;
    bool hasFocus(ui::Control& control) override;
    int rowCount(ui::Grid& grid) override;
    std::string cell(ui::Grid& grid, int row, int column) override;
    void wait(int milliseconds) override;
    void screenshot(const std::string& file) override;

  private:
    WindowShell* shell() const;
    ControlView* view(ui::Control& control) const;
    QWidget* widget(ui::Control& control) const;
    QTableView* table(ui::Grid& grid) const;
    void type(const std::string& characters);

    QtDesktop& m_desktop;
};

} // namespace opd::qt
