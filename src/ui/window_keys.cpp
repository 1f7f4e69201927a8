#include "ui/window.h"

#include "base/clock/date_time.h"
#include "base/text/text.h"

#include <algorithm>

namespace opd::ui {

namespace {

bool isArrow(Key key) {
    return key == Key::Up || key == Key::Down || key == Key::Left || key == Key::Right;
}

bool isBackward(Key arrow) {
    return arrow == Key::Up || arrow == Key::Left;
}

/// The character code of a stroke that a window looks at as a typed character; 0 for the others.
char32_t typedCode(const KeyStroke& stroke) {
    switch (stroke.key) {
    case Key::Character:
        return stroke.control ? 0 : stroke.character;
    case Key::Enter:
        return key::enter;
    case Key::Escape:
        return key::escape;
    case Key::Backspace:
        return key::backspace;
    default:
        return 0;
    }
}

/// The next entry of a list, round its end, that begins with a letter; the present one when there is none.
int entryOfLetter(const ComboBox& box, char32_t letter) {
    const int count = static_cast<int>(box.items().size());
    for (int step = 1; step <= count; ++step) {
        const int index = (box.index() + step) % count;
        const std::u32string entry = text::decode(box.items()[static_cast<std::size_t>(index)]);
        if (!entry.empty() && text::upper(entry.front()) == text::upper(letter))
            return index;
    }
    return box.index();
}

/// The entry of a list that a stroke leads to, which there may not be.
int entryReached(const ComboBox& box, const KeyStroke& stroke) {
    switch (stroke.key) {
    case Key::Character:
        return entryOfLetter(box, stroke.character);
    case Key::Up:
    case Key::PageUp:
        return box.index() - 1;
    case Key::Down:
    case Key::PageDown:
        return box.index() + 1;
    case Key::Home:
        return 0;
    case Key::End:
        return static_cast<int>(box.items().size()) - 1;
    default:
        return box.index();
    }
}

} // namespace

std::optional<KeyStroke> Window::press(const KeyStroke& stroke, Desktop& desktop) {
    if (m_handling)
        return std::nullopt;
    sayLeftOut({});
    if (stroke.alt && !stroke.control)
        return pressWithAlt(stroke) ? std::nullopt : std::optional{stroke};
    if (pressToMoveOn(stroke) || pressFunctionKey(stroke, desktop))
        return std::nullopt;
    if (isArrow(stroke.key) && pressArrowKey(stroke.key))
        return std::nullopt;
    if (stroke.isCharacter() && !stroke.control && pressOptionLetter(stroke.character))
        return std::nullopt;
    return pressTyped(stroke);
}

bool Window::pressWithAlt(const KeyStroke& stroke) {
    if (!stroke.isCharacter() || stroke.character <= key::space)
        return false;
    pressAccessKey(stroke.character);
    return true;
}

bool Window::pressToMoveOn(const KeyStroke& stroke) {
    if (stroke.key == Key::Tab && !stroke.control)
        pressTab(stroke.shift);
    else if (stroke.key == Key::Tab)
        turnPage(stroke.shift);
    else if ((stroke.key == Key::PageUp || stroke.key == Key::PageDown) && stroke.control)
        turnPage(stroke.key == Key::PageUp);
    else
        return false;
    return true;
}

bool Window::pressFunctionKey(const KeyStroke& stroke, Desktop& desktop) {
    if (stroke.key >= Key::F1 && pressOwnKey(stroke))
        return true;
    if (!stroke.isAlone())
        return false;
    switch (stroke.key) {
    case Key::F1:
        pressHelp(desktop);
        return true;
    case Key::F2:
        return pressOnCell(key::enter);
    case Key::F4:
        return pressLookup();
    case Key::Delete:
        return pressOnCell(key::backspace);
    default:
        return false;
    }
}

/// A key that this window alone has a use for.
bool Window::pressOwnKey(const KeyStroke& stroke) {
    const std::string name = nameOf(stroke);
    const auto own =
        std::find_if(ownKeys.begin(), ownKeys.end(), [&](const KeyNote& note) { return note.act && note.key == name; });
    if (own == ownKeys.end())
        return false;
    Control* target = nullptr;
    const int life = m_life;
    const std::function<Control*()> act = own->act; // which may close the window
    handle([&] { target = act(); });
    if (target != nullptr && life == m_life)
        requestFocus(*target);
    return true;
}

bool Window::pressArrowKey(Key arrow) {
    if ((arrow == Key::Down && pressArrowDown()) || pressArrow(isBackward(arrow)))
        return true;
    // A button has nothing that an arrow could move in.
    return m_focus == nullptr || m_focus->kind() == Kind::Button || m_focus->kind() == Kind::CheckBox;
}

std::optional<KeyStroke> Window::pressTyped(const KeyStroke& stroke) {
    const char32_t code = typedCode(stroke);
    const bool breaksLine = stroke.key == Key::Enter && (stroke.shift || stroke.control) && breaksLines();
    if (code == 0 || breaksLine)
        return stroke;
    const Control* const before = m_focus;
    KeyStroke left = stroke;
    const char32_t taken = pressKey(code);
    if (stroke.isCharacter())
        left.character = taken;
    const bool isUnused =
        taken == code && (stroke.key == Key::Backspace || (stroke.key == Key::Enter && breaksLines()));
    const bool isLeft = stroke.isCharacter() ? taken >= key::space : isUnused;
    return isLeft && m_focus != nullptr && m_focus == before ? std::optional{left} : std::nullopt;
}

void Window::step(const KeyStroke& stroke) {
    const Key key = stroke.key;
    if (m_focus == nullptr || stroke.control || stroke.alt)
        return;
    if (m_focus->kind() == Kind::Grid && isArrow(key)) {
        auto& grid = static_cast<Grid&>(*m_focus);
        const int step = isBackward(key) ? -1 : 1;
        const bool sideways = key == Key::Left || key == Key::Right;
        pickedCell(grid, std::max(1, grid.currentRow() + (sideways ? 0 : step)),
                   grid.currentColumn() + (sideways ? step : 0));
    } else if (m_focus->kind() == Kind::ComboBox) {
        auto& box = static_cast<ComboBox&>(*m_focus);
        const int index = entryReached(box, stroke);
        if (index != box.index() && index >= 0 && index < static_cast<int>(box.items().size()))
            picked(box, index);
    } else if (m_focus->kind() == Kind::DatePicker && (key == Key::Up || key == Key::Down)) {
        auto& picker = static_cast<DatePicker&>(*m_focus);
        if (picker.format() == DatePicker::Format::Date)
            edited(picker, addDays(picker.value(), key == Key::Up ? 1 : -1));
    }
}

} // namespace opd::ui
