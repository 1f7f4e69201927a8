#pragma once

#include <string>

namespace opd::ui {

/// Character codes of the keys that a window looks at by name.
namespace key {
inline constexpr char32_t backspace = 8;
inline constexpr char32_t tab = 9;
inline constexpr char32_t enter = 13;
inline constexpr char32_t escape = 27;
inline constexpr char32_t space = U' ';
} // namespace key

/// A typed character on its way to a control. A handler may put another character in its place or drop it with 0.
struct KeyPress {
    char32_t code = 0;

    void drop() { code = 0; }
};

/// One stroke on the keyboard: a named key ("Enter", "Tab", "F4", "Down") or a character, with the keys held down
/// meanwhile.
struct KeyStroke {
    std::string name = {};  ///< empty for a character
    char32_t character = 0; ///< 0 for a named key
    bool shift = false;
    bool control = false;
    bool alt = false;
};

} // namespace opd::ui
