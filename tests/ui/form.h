#pragma once

#include "ui/window.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace opd::ui {

/// Writes down what a window tells its view.
struct RecordingView final : WindowView {
    std::vector<std::string> focused; ///< names, "-" for nowhere
    std::vector<Aspect> aspects;
    int closes = 0;

    void changed(Control&, Aspect aspect) override { aspects.push_back(aspect); }
    void focusMoved(Control* control) override { focused.push_back(control == nullptr ? "-" : control->name()); }
    void closed() override { ++closes; }
};

/// A window with two plain fields, two buttons, a group of options, a grid, and three pages.
struct Form {
    Window window{"frmTest", "Test"};
    TextBox first{window, "first", "&First"};
    TextBox second{window, "second", "&Second"};
    Frame sex{window, "sex", "Sex"};
    OptionButton male{sex, "male", "&Male"};
    OptionButton female{sex, "female", "F&emale"};
    Button ok{window, "ok", "&OK"};
    Button cancel{window, "cancel", "Cancel"};
    Grid grid{window, "grid"};
    Tabs tabs{window, "tabs"};
    Page pageOne{tabs, "pageOne", "One"};
    TextBox one{pageOne, "one", "O&ne"};
    Page pageTwo{tabs, "pageTwo", "Two"};
    CheckBox two{pageTwo, "two", "&Two"};
    Page pageThree{tabs, "pageThree", "Three"};
    TextBox three{pageThree, "three", "T&hree"};

    Timer timer{window, "timer", 10};

    RecordingView view;
    std::vector<std::string> log; ///< what handlers ran
    std::vector<std::string> failures;

    Form() {
        cancel.causesValidation = false;
        window.onFailure = [this](const std::exception& failure) { failures.emplace_back(failure.what()); };
        for (Button* button : {&ok, &cancel})
            button->onClick = note(button->name() + " clicked");
        grid.onDoubleClick = note("opened");
    }

    /// Shows the window with the focus on the first field.
    void open() {
        window.load();
        window.opened(view);
    }

    std::function<void()> note(std::string line) {
        return [this, line = std::move(line)] { log.push_back(line); };
    }

    std::string focus() const { return window.focus() == nullptr ? "-" : window.focus()->name(); }
};

[[noreturn]] inline void fail() {
    throw std::runtime_error("broken");
}

} // namespace opd::ui
