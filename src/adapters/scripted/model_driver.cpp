#include "adapters/scripted/model_driver.h"

#include "base/text/text.h"

#include <algorithm>
#include <optional>

namespace opd::adapters {

void ModelDriver::press(const script::KeyStroke& key) {
    ui::Window* const window = currentWindow();
    if (window == nullptr)
        return;
    if (key.alt && key.character != 0)
        window->pressAccessKey(key.character);
    else if (key.control && (key.name == "Tab" || key.name == "PageDown" || key.name == "PageUp"))
        window->turnPage(key.shift || key.name == "PageUp");
    else if (key.character != 0 && key.control)
        pressEditing(*window, key);
    else if (key.character != 0)
        pressCharacter(*window, key.character);
    else
        pressNamed(*window, key);
}

void ModelDriver::pressNamed(ui::Window& window, const script::KeyStroke& key) {
    const std::string& name = key.name;
    if (name == "Tab")
        window.pressTab(key.shift);
    else if (name == "Enter" && (key.shift || key.control) && window.breaksLines())
        pressEditing(window, key);
    else if (name == "Enter")
        pressCharacter(window, ui::key::enter);
    else if (name == "Escape")
        pressCharacter(window, ui::key::escape);
    else if (name == "Space")
        pressCharacter(window, ui::key::space);
    else if (name == "Down" && window.pressArrowDown())
        return;
    else if (name == "F1")
        window.pressHelp(m_desktop);
    else if (name == "F2")
        window.pressOnCell(ui::key::enter);
    else if (name == "F4")
        window.pressLookup();
    else if (name == "Delete" && !key.shift && !key.control && window.pressOnCell(ui::key::backspace))
        return;
    else if (name != "Backspace" || window.pressKey(ui::key::backspace) != 0)
        pressEditing(window, key);
}

void ModelDriver::pressCharacter(ui::Window& window, char32_t character) {
    ui::Control* const before = window.focus();
    const char32_t kept = window.pressKey(character);
    if (kept < ui::key::space || window.focus() == nullptr || window.focus() != before || !m_edits.contains(&window))
        return;
    m_edits.at(&window).insert(text::encode(kept));
    takeOver(window);
}

void ModelDriver::pressArrow(ui::Window& window, const std::string& key) {
    const bool backward = key == "Up" || key == "Left";
    if (!backward && key != "Down" && key != "Right")
        return;
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

/// The rules by which the content of a control is edited; nothing when it has no text of its own.
std::optional<ui::LineEdit::Rules> rulesOf(const ui::Control* control) {
    if (const auto* masked = dynamic_cast<const ui::MaskedBox*>(control))
        return ui::LineEdit::Rules{.mask = masked->mask(), .maxLength = masked->maxLength()};
    if (const auto* box = dynamic_cast<const ui::TextBox*>(control))
        return ui::LineEdit::Rules{
            .maxLength = box->maxLength(), .multiLine = box->multiLine, .readOnly = box->readOnly};
    return std::nullopt;
}

/// A content as it is edited, where a line ends in one character.
std::string editedText(const ui::Control& control) {
    return text::replaced(control.shownText(), "\r\n", "\n");
}

} // namespace

void ModelDriver::focusMoved(ui::Window& window) {
    load(window);
    if (const auto edit = m_edits.find(&window); edit != m_edits.end())
        edit->second.selectAll();
}

void ModelDriver::load(ui::Window& window) {
    m_edits.erase(&window);
    if (const std::optional<ui::LineEdit::Rules> rules = rulesOf(window.focus()))
        m_edits[&window].load(editedText(*window.focus()), *rules);
}

// A text that is set by program leaves nothing selected; one that the clerk edits is here already.
void ModelDriver::contentChanged(ui::Control& control) {
    const auto edit = m_edits.find(&control.window());
    if (edit != m_edits.end() && edit->second.text() != editedText(control))
        load(control.window());
}

void ModelDriver::selectContent() {
    ui::Window* const window = currentWindow();
    if (window != nullptr && m_edits.contains(window))
        m_edits.at(window).selectAll();
}

std::string ModelDriver::selection() {
    ui::Window* const window = currentWindow();
    return window != nullptr && m_edits.contains(window) ? m_edits.at(window).selection() : std::string{};
}

void ModelDriver::pressEditing(ui::Window& window, const script::KeyStroke& key) {
    if (!m_edits.contains(&window)) {
        pressArrow(window, key.name);
        return;
    }
    ui::LineEdit& edit = m_edits.at(&window);
    const char32_t letter = text::upper(key.character);
    if (letter == U'V') {
        paste(window);
        return;
    }
    if ((letter == U'C' || letter == U'X') && !edit.selection().empty())
        m_clipboard = edit.selection();
    if (letter == U'X')
        edit.eraseSelection();
    else if (key.name == "Enter")
        edit.insert("\n");
    else
        edit.press(key);
    takeOver(window);
}

void ModelDriver::paste(ui::Window& window) {
    const std::string passed = window.passed(*window.focus(), m_clipboard);
    if (passed.empty() || !m_edits.contains(&window))
        return;
    m_edits.at(&window).insert(text::replaced(passed, "\r\n", "\n"));
    takeOver(window);
}

/// What was edited becomes the content of the field.
void ModelDriver::takeOver(ui::Window& window) {
    const std::string content = m_edits.at(&window).text();
    if (content == editedText(*window.focus()))
        return;
    if (auto* masked = dynamic_cast<ui::MaskedBox*>(window.focus()))
        window.edited(*masked, content);
    else if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()))
        window.edited(*box, box->multiLine ? ui::TextBox::withLineEnds(content) : content);
}

} // namespace opd::adapters
