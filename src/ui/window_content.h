#pragma once

#include "ports/image/image.h"
#include "ui/grid.h"
#include "ui/window.h"

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
    };

    static State stateOf(const Control& control);
    static void put(const State& state, Control& control);

    std::map<std::string, State> m_states; ///< by the control's name
};

} // namespace opd::ui
