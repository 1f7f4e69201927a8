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
std::string withDigit(std::string text, std::size_t& place, char32_t character) {
    while (place < text.size() && ui::MaskedBox::mask[place] != '#')
        ++place;
    if (place < text.size() && character >= U'0' && character <= U'9')
        text[place++] = static_cast<char>(character);
    return text;
}

} // namespace

void ModelDriver::enter(ui::Window& window, char32_t character) {
    const bool replaces = std::exchange(m_contentSelected, false);
    if (auto* masked = dynamic_cast<ui::MaskedBox*>(window.focus())) {
        if (replaces)
            m_maskPlace = 0;
        window.edited(*masked,
                      withDigit(replaces ? std::string{blankDateText} : masked->text(), m_maskPlace, character));
    } else if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()); box != nullptr && !box->readOnly) {
        const std::string before = replaces ? std::string{} : box->text();
        const bool full = box->maxLength() > 0 && static_cast<int>(text::length(before)) >= box->maxLength();
        window.edited(*box, full ? before : before + text::encode(character));
    }
}

void ModelDriver::erase(ui::Window& window) {
    const bool all = std::exchange(m_contentSelected, false);
    if (auto* masked = dynamic_cast<ui::MaskedBox*>(window.focus())) {
        std::string text = all ? std::string{blankDateText} : masked->text();
        if (all)
            m_maskPlace = 0;
        while (m_maskPlace > 0 && ui::MaskedBox::mask[--m_maskPlace] != '#') {
        }
        text[m_maskPlace] = ' ';
        window.edited(*masked, text);
    } else if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()); box != nullptr && !box->readOnly) {
        std::u32string text = all ? std::u32string{} : text::decode(box->text());
        if (!text.empty())
            text.pop_back();
        window.edited(*box, text::encode(text));
    }
}

} // namespace opd::adapters
