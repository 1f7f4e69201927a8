#include "data/procedures/key_filters.h"

#include "base/text/text.h"

namespace opd::data {

void FilterNameKey(char32_t& key) {
    key = text::upper(key);
    if (key < U' ')
        return;
    constexpr std::u32string_view others = U",-Ñ ";
    const bool letter = key >= U'A' && key <= U'Z';
    if (!letter && others.find(key) == std::u32string_view::npos)
        key = 0;
}

std::string_view NameCharacters() {
    return "ABCDEFGHIJKLMNOPQRSTUVWXYZÑ.";
}

char32_t FilterKeyByChars(std::string_view allowed, char32_t key) {
    if (key >= U'a' && key <= U'z')
        key = text::upper(key);
    const bool passes = key == ui::key::backspace || key == ui::key::tab || key == ui::key::enter ||
                        key == ui::key::escape || text::decode(allowed).find(key) != std::u32string::npos;
    return passes ? key : 0;
}

char32_t FilterKeyInSet(ui::Desktop& desktop, char32_t key, std::string_view allowed, bool backspace) {
    const bool inSet = text::decode(text::upper(allowed)).find(text::upper(key)) != std::u32string::npos;
    if (inSet || (backspace && key == ui::key::backspace))
        return key;
    desktop.beep();
    return 0;
}

} // namespace opd::data
