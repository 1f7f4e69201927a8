#pragma once

#include "script/driver.h"

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

namespace opd::script {

/// What a command expected and what was there instead.
class Mismatch : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// What a clerk's hands had to do since the count began.
struct Keystrokes {
    int count = 0;           ///< keys, each with what is held down meanwhile, and answers to message boxes
    std::string uncountable; ///< the first command that no key stands for, such as a click; empty without one
};

/// What a command works with.
struct Scene {
    Driver& driver;
    std::ostream& output; ///< of `print`
    Keystrokes& keystrokes;

    /// Presses a key, and counts it.
    void press(const ui::KeyStroke& stroke) const;

    /// The window that has the clerk's attention. Throws Mismatch when there is none.
    ui::Window& window() const;

    /// A control of that window. Throws Mismatch when it has none of that name.
    ui::Control& control(const std::string& name) const;

    /// The same as a certain kind of control. Throws Mismatch when it is another kind.
    template <class T> T& controlOf(const std::string& name, const char* kind) const {
        if (auto* control = dynamic_cast<T*>(&this->control(name)))
            return *control;
        throw Mismatch("expected " + name + " to be a " + kind + ", but it is none");
    }
};

/// One command of the language: its name, how many words follow it, and what it does with them.
struct Command {
    const char* name;
    std::size_t arguments;
    void (*run)(const Scene& scene, const std::vector<std::string>& words); ///< throws Mismatch
    bool byMouse = false; ///< moves or picks as a hand on the mouse does, however many keys that were
};

/// The command of a name, or null. `answer` is none of them: it is read before the script plays.
const Command* findCommand(const std::string& name);

} // namespace opd::script
