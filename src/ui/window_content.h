#pragma once

#include "ports/image/image.h"
#include "ui/grid.h"
#include "ui/window.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace opd::ui {

/// What the controls of a window hold at one moment: texts, choices, ticks, rows, pictures, and what can be seen and
/// used of them. It outlives the window, and can be put into another window of the same make.
class WindowContent {
  public:
    /// Takes down what the window's controls hold.
    explicit WindowContent(const Window& window);

    /// Puts it back, control by control. No event of any control is raised meanwhile, so no rule answers to it. A
    /// control of a name that was not there keeps what it holds.
    void restore(Window& window) const;

    /// Likewise, and only what differs from what was taken down `before` in another window of the same make: whatever
    /// else the window holds stays. The options of a group, and a code with what it stands for, go together. Pictures
    /// and the moments of pickers count as the same.
    void restoreChanges(const WindowContent& before, Window& window) const;

  private:
    struct State {
        bool visible = true;
        bool enabled = true;
        std::string caption;
        std::string refusal;
        std::string text;  ///< of a box, masked box or combo box
        std::string mask;  ///< of a masked box
        int maxLength = 0; ///< likewise
        int number = 0;    ///< value, chosen entry, page or frame
        DateTime moment;   ///< of a date picker
        std::vector<Grid::Row> rows;
        int row = 0;
        int column = 0;
        SharedImage image;

        bool holdsSameAs(const State& other) const;
    };

    static State stateOf(const Control& control);
    static void put(const State& state, Control& control);
    void restoreWhere(const std::function<bool(const Control&)>& isMeant, Window& window) const;
    bool differs(const WindowContent& before, const Control& control) const;

    std::map<std::string, State> m_states; ///< by the control's name
};

} // namespace opd::ui
