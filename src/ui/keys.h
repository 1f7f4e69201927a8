#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace opd::ui {

/// The keys of a keyboard that are no characters; keys.cpp holds their names.
enum class Key {
    Character, ///< none of these: what the stroke means is its character
    Enter,
    Tab,
    Escape,
    Backspace,
    Delete,
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    PageUp,
    PageDown,
    F1,
    F2,
    F3,
    F4,
    F5,
    F6,
    F7,
    F8,
    F9,
    F10,
    F11,
    F12
};

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

/// One stroke on the keyboard: a key or a character, with the keys held down meanwhile. The space bar is a character.
struct KeyStroke {
    Key key = Key::Character;
    char32_t character = 0; ///< 0 unless the key is a character
    bool shift = false;
    bool control = false;
    bool alt = false;

    bool isCharacter() const { return key == Key::Character; }

    /// True when no other key is held down.
    bool isAlone() const { return !shift && !control && !alt; }

    /// The letter, as a capital, that is pressed together with Ctrl; 0 when none is.
    char32_t letterWithControl() const;
};

/// The stroke of a name such as "Enter", "Shift+Tab", "Alt+R", "Ctrl+PageDown", "Space" or "a"; nothing for a name that
/// is no key.
std::optional<KeyStroke> keyStroke(std::string_view name);

/// The name of a stroke, as `keyStroke` reads it.
std::string nameOf(const KeyStroke& stroke);

} // namespace opd::ui
