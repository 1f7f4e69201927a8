#include "adapters/scripted/model_driver.h"

#include "base/text/text.h"

#include <optional>

namespace opd::adapters {

namespace {

/// An arrow that the line of a date has no use for.
bool goesToAnotherDay(const ui::Window& window, const ui::KeyStroke& key) {
    return window.focus() != nullptr && window.focus()->kind() == ui::Kind::DatePicker &&
           (key.key == ui::Key::Up || key.key == ui::Key::Down);
}

} // namespace

void ModelDriver::press(const script::KeyStroke& key) {
    ui::Window* const window = currentWindow();
    const std::optional<ui::KeyStroke> left = window == nullptr ? std::nullopt : window->press(key, m_desktop);
    if (!left)
        return;
    if (m_edits.contains(window) && !goesToAnotherDay(*window, *left))
        edit(*window, *left);
    else
        window->step(*left);
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
    const auto* picker = dynamic_cast<const ui::DatePicker*>(control);
    if (picker != nullptr && picker->format() == ui::DatePicker::Format::Date)
        return ui::LineEdit::Rules{.mask = std::string{ui::MaskedBox::dateMask},
                                   .maxLength = static_cast<int>(ui::MaskedBox::dateMask.size())};
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

void ModelDriver::edit(ui::Window& window, const ui::KeyStroke& key) {
    if (key.letterWithControl() == U'V')
        paste(window);
    else
        m_edits.at(&window).press(key, m_clipboard);
    if (!m_edits.contains(&window))
        return;
    if (const ui::LineEdit& edit = m_edits.at(&window); edit.isCut())
        window.foundNoRoom(edit.maxLength());
    takeOver(window);
}

void ModelDriver::paste(ui::Window& window) {
    const std::string passed = window.passed(*window.focus(), m_clipboard);
    if (passed.empty() || !m_edits.contains(&window))
        return;
    m_edits.at(&window).insert(text::replaced(passed, "\r\n", "\n"));
}

/// What was edited becomes the content of the field.
void ModelDriver::takeOver(ui::Window& window) {
    const std::string content = m_edits.at(&window).text();
    if (content == editedText(*window.focus()))
        return;
    if (auto* masked = dynamic_cast<ui::MaskedBox*>(window.focus()))
        window.edited(*masked, content);
    else if (auto* picker = dynamic_cast<ui::DatePicker*>(window.focus()))
        window.edited(*picker, content);
    else if (auto* box = dynamic_cast<ui::TextBox*>(window.focus()))
        window.edited(*box, box->multiLine ? ui::TextBox::withLineEnds(content) : content);
}

} // namespace opd::adapters
