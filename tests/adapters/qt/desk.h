#pragma once

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/window_shell.h"
#include "tests/adapters/qt/sample_windows.h"

#include "base/text/text.h"

#include <gtest/gtest.h>

namespace opd::qt {

/// A desk with one window on it, and hands that work it by real keys and clicks.
template <class Form> struct Desk {
    Form form;
    QtDesktop desktop;
    QtDriver hands{desktop};

    Desk() {
        desktop.show(form);
        hands::settle();
    }

    WindowShell& shell() { return *desktop.currentShell(); }

    template <class Widget> Widget* widget(const char* name) {
        return shell().template findChild<Widget*>(QString::fromLatin1(name));
    }

    void type(const std::string& text) {
        for (const char32_t character : text::decode(text))
            hands.press({.character = character});
    }

    /// A stroke by its name, as scripts write it.
    void press(const std::string& name) { hands.press(ui::keyStroke(name).value()); }
};

using SearchDesk = Desk<samples::SearchWindow>;
using RegistrationDesk = Desk<samples::RegistrationWindow>;

} // namespace opd::qt
