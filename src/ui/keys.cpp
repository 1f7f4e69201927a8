#include "ui/keys.h"

#include "base/text/text.h"

#include <algorithm>
#include <iterator>

namespace opd::ui {

namespace {

struct NamedKey {
    Key key;
    std::string_view name;
};

constexpr NamedKey namedKeys[] = {{Key::Enter, "Enter"},
                                  {Key::Tab, "Tab"},
                                  {Key::Escape, "Escape"},
                                  {Key::Backspace, "Backspace"},
                                  {Key::Delete, "Delete"},
                                  {Key::Up, "Up"},
                                  {Key::Down, "Down"},
                                  {Key::Left, "Left"},
                                  {Key::Right, "Right"},
                                  {Key::Home, "Home"},
                                  {Key::End, "End"},
                                  {Key::PageUp, "PageUp"},
                                  {Key::PageDown, "PageDown"},
                                  {Key::F1, "F1"},
                                  {Key::F2, "F2"},
                                  {Key::F3, "F3"},
                                  {Key::F4, "F4"},
                                  {Key::F5, "F5"},
                                  {Key::F6, "F6"},
                                  {Key::F7, "F7"},
                                  {Key::F8, "F8"},
                                  {Key::F9, "F9"},
                                  {Key::F10, "F10"},
                                  {Key::F11, "F11"},
                                  {Key::F12, "F12"}};
constexpr std::string_view spaceName = "Space";

struct Modifier {
    bool KeyStroke::*held;
    std::string_view name;
};

constexpr Modifier modifiers[] = {
    {&KeyStroke::shift, "Shift+"}, {&KeyStroke::control, "Ctrl+"}, {&KeyStroke::alt, "Alt+"}};

/// Takes the name of a key held down off the front of a text. False when none stands there before another key.
bool takeModifier(std::string_view& text, KeyStroke& stroke) {
    for (const Modifier& modifier : modifiers)
        if (text.size() > modifier.name.size() && text.starts_with(modifier.name)) {
            stroke.*modifier.held = true;
            text.remove_prefix(modifier.name.size());
            return true;
        }
    return false;
}

} // namespace

char32_t KeyStroke::letterWithControl() const {
    return control && isCharacter() ? text::upper(character) : 0;
}

std::optional<KeyStroke> keyStroke(std::string_view name) {
    KeyStroke stroke;
    while (takeModifier(name, stroke))
        continue;
    for (const NamedKey& named : namedKeys)
        if (named.name == name) {
            stroke.key = named.key;
            return stroke;
        }
    const std::u32string characters = text::decode(name == spaceName ? " " : name);
    if (characters.size() != 1)
        return std::nullopt;
    stroke.character = characters.front();
    return stroke;
}

std::string nameOf(const KeyStroke& stroke) {
    std::string name;
    for (const Modifier& modifier : modifiers)
        if (stroke.*modifier.held)
            name += modifier.name;
    if (stroke.isCharacter())
        return name + (stroke.character == key::space ? std::string{spaceName} : text::encode(stroke.character));
    const auto* const named = std::find_if(std::begin(namedKeys), std::end(namedKeys),
                                           [&](const auto& one) { return one.key == stroke.key; });
    return name.append(named->name);
}

} // namespace opd::ui
