#pragma once

#include "adapters/qt/basics/qt_text.h"
#include "adapters/qt/hands.h"
#include "adapters/qt/qt_desktop.h"
#include "adapters/qt/window_shell.h"
#include "tests/adapters/qt/sample_windows.h"

#include "base/text/text.h"

#include <QTest>

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
        for (const char32_t character : text::decode(text)) {
            script::KeyStroke key;
            key.character = character;
            hands.press(key);
        }
    }

    void press(const std::string& name, bool shift = false, bool control = false) {
        script::KeyStroke key;
        key.name = name;
        key.shift = shift;
        key.control = control;
        hands.press(key);
    }

    void pressAlt(char character) {
        script::KeyStroke key;
        key.character = static_cast<char32_t>(character);
        key.alt = true;
        hands.press(key);
    }
};

using SearchDesk = Desk<samples::SearchWindow>;
using RegistrationDesk = Desk<samples::RegistrationWindow>;

} // namespace opd::qt
