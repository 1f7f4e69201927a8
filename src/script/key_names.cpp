#include "script/key_names.h"

#include "base/text/text.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>

namespace opd::script {

namespace {

constexpr std::array<std::string_view, 26> namedKeys{
    "Enter",    "Tab", "Escape", "Backspace", "Delete", "Space", "Up", "Down", "Left", "Right", "Home", "End", "PageUp",
    "PageDown", "F1",  "F2",     "F3",        "F4",     "F5",    "F6", "F7",   "F8",   "F9",    "F10",  "F11", "F12"};

/// Takes a modifier's name off the front of the text. True when it stood there.
bool takeModifier(std::string_view& text, std::string_view modifier) {
    if (!text.starts_with(modifier))
        return false;
    text.remove_prefix(modifier.size());
    return true;
}

} // namespace

KeyStroke keyStroke(const std::string& name) {
    KeyStroke stroke;
    std::string_view rest = name;
    for (bool found = true; found && rest.size() > 1;) {
        found = false;
        for (const auto& [modifier, held] :
             {std::pair{"Shift+", &stroke.shift}, std::pair{"Ctrl+", &stroke.control}, std::pair{"Alt+", &stroke.alt}})
            if (takeModifier(rest, modifier))
                found = *held = true;
    }
    if (std::find(namedKeys.begin(), namedKeys.end(), rest) != namedKeys.end()) {
        stroke.name = rest;
        return stroke;
    }
    const std::u32string characters = text::decode(rest);
    if (characters.size() != 1)
        throw std::runtime_error("\"" + name + "\" is no key");
    stroke.character = characters.front();
    return stroke;
}

} // namespace opd::script
