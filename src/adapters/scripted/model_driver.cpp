#include "adapters/scripted/model_driver.h"

#include "platform/text/text.h"

#include <utility>

namespace opd::adapters {

void ModelDriver::press(const script::KeyStroke& key) {
    ui::Window* const window = currentWindow();
    if (window == nullptr)
        return;
    if (key.alt && key.character != 0)
        window->pressAccessKey(key.character);
    else if (key.control && (key.name == "Tab" || key.name == "PageDown" || key.name == "PageUp"))
        window->turnPage(key.shift || key.name == "PageUp");
    else if (key.character != 0)
        pressCharacter(*window, key.character);
    else
        pressNamed(*window, key.name, key.shift);
}

void ModelDriver::pressNamed(ui::Window& window, const std::string& name, bool shift) {
    if (name == "Tab")
        window.pressTab(shift);
    else if (name == "Enter")
        pressCharacter(window, ui::key::enter);
    else if (name == "Escape")
        pressCharacter(window, ui::key::escape);
    else if (name == "Backspace" || name == "Delete")
        pressCharacter(window, ui::key::backspace);
    else if (name == "Space")
        pressCharacter(window, ui::key::space);
    else if (name == "Down" && window.pressArrowDown())
        return;
    else if (name == "F2")
        window.pressOnCell(ui::key::enter);
    else if (name == "F4")
        window.pressLookup();
    else if (name == "Down" || name == "Right" || name == "Up" || name == "Left")
        pressArrow(window, name);
}

void ModelDriver::pressCharacter(ui::Window& window, char32_t character) {
    ui::Control* const before = window.focus();
    const char32_t kept = window.pressKey(character);
    if (kept == 0 || window.focus() == nullptr || window.focus() != before)
        return;
    if (kept == ui::key::backspace)
        erase(window);
    else if (kept >= ui::key::space)
        enter(window, kept);
}

void ModelDriver::pressArrow(ui::Window& window, const std::string& key) {
    const bool backward = key == "Up" || key == "Left";
    if (window.pressArrow(backward))
        return;
    const int step = backward ? -1 : 1;
    if (auto* grid = dynamic_cast<ui::Grid*>(window.focus())) {
        const bool sideways = key == "Left" || key == "Right";
        window.pickedCell(*grid, std::max(1, grid->currentRow() + (sideways ? 0 : step)),
                          grid->currentColumn() + (sideways ? step : 0));
    } else if (auto* box = dynamic_cast<ui::ComboBox*>(window.focus())) {
        const int index = box->index() + step;
        if (index >= 0 && index < static_cast<int>(box->items().size()))
            window.picked(*box, index);
    }
}

// The focus first: a field that is left may keep it, and then nothing is picked.
void ModelDriver::pickCell(ui::Grid& grid, int row, int column) {
    ui::Window& window = grid.window();
    if (!window.requestFocus(grid))
        return;
    window.pickedCell(grid, row, column);
    window.click(grid);
}

bool ModelDriver::isChecked(ui::Control& control) {
    if (const auto* option = dynamic_cast<const ui::OptionButton*>(&control))
        return option->selected();
    const auto* box = dynamic_cast<const ui::CheckBox*>(&control);
    return box != nullptr && box->checked();
}

namespace {

/// The text with the digit in the next free place of the mask, which `place` then stands behind.
std::string withDigit(const std::string& mask, std::string text, std::size_t& place, char32_t character) {
    while (place < text.size() && mask[place] != '#')
        ++place;
    if (place < text.size() && character >= U'0' && character <= U'9')
        text[place++] = static_cast<char>(character);
    return text;
}

/// The text without the character before `place`, which then stands there.
std::string withoutDigit(const std::string& mask, std::string text, std::size_t& place) {
    while (place > 0 && mask[--place] != '#') {
    }
    text[place] = ' ';
    return text;
}

std::string withCharacter(const std::string& text, int maxLength, char32_t character) {
    const bool full = maxLength > 0 && static_cast<int>(text::length(text)) >= maxLength;
    return full ? text : text + text::encode(character);
}

std::string withoutLast(const std::string& text) {
    std::u32string characters = text::decode(text);
    if (!characters.empty())
        characters.pop_back();
    return text::encode(characters);
}

} // namespace

// What is selected makes room for the character.
void ModelDriver::enter(ui::Window& window, char32_t character) {
    const bool replaces = std::exchange(m_contentSelected, false);
    if (auto* masked = dynamic_cast<ui::MaskedBox*>(window.focus())) {
        if (replaces)
            m_maskPlace = 0;
        const std::string before = replaces ? masked->blankText() : masked->text();
        window.edited(*masked, masked->mask().empty() ? withCharacter(before, masked->maxLength(), character)
                                                      : withDigit(masked->mask(), before, m_maskPlace, character));
    } else if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()); box != nullptr && !box->readOnly) {
        window.edited(*box, withCharacter(replaces ? std::string{} : box->text(), box->maxLength(), character));
    }
}

void ModelDriver::erase(ui::Window& window) {
    const bool all = std::exchange(m_contentSelected, false);
    if (auto* masked = dynamic_cast<ui::MaskedBox*>(window.focus())) {
        if (all)
            m_maskPlace = 0;
        const std::string rest = all                      ? masked->blankText()
                                 : masked->mask().empty() ? withoutLast(masked->text())
                                                          : withoutDigit(masked->mask(), masked->text(), m_maskPlace);
        window.edited(*masked, rest);
    } else if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()); box != nullptr && !box->readOnly) {
        window.edited(*box, all ? std::string{} : withoutLast(box->text()));
    }
}

} // namespace opd::adapters
