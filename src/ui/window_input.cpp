#include "ui/window.h"

#include "base/text/text.h"
#include "ui/coded_field.h"
#include "ui/key_card.h"

#include <algorithm>
#include <utility>

namespace opd::ui {

namespace {

bool canPress(const Button* button) {
    return button != nullptr && button->isShown() && button->isUsable();
}

/// A lookup button that kept the focus gives it to its code field, so that Enter moves on instead of pressing it again.
void leaveLookup(Window& window, const Control& button) {
    if (window.focus() == &button && isLookup(button))
        window.setFocus(button.coded->code);
}

} // namespace

char32_t Window::pressKey(char32_t code) {
    if (m_handling)
        return 0;
    KeyPress press{code};
    const int life = m_life;
    const bool succeeded = handle([&] { passKey(press); });
    return succeeded && life == m_life ? press.code : 0;
}

void Window::passKey(KeyPress& press) {
    Control* const target = m_focus;
    const int life = m_life;
    // A handler may close the window or take the control away; the character then ends there.
    const auto isGone = [&] { return life != m_life || !target->canTakeFocus(); };
    if (press.code == key::escape && target != nullptr && target->onEscape) {
        press.drop();
        target->onEscape();
        return;
    }
    if (press.code == key::escape && canPress(cancelButton)) {
        press.drop();
        cancelButton->clicked();
        return;
    }
    if (press.code == key::enter)
        completeDate();
    if (keyPreview && onKeyPress)
        onKeyPress(press);
    if (target == nullptr || press.code == 0)
        return;
    if (!isGone())
        target->onKeyPress(press);
    if (isGone())
        press.drop();
    if (press.code == 0)
        return;
    if (typesElsewhere(press))
        return;
    if (target->handleKey(press.code))
        press.drop();
    else if (press.code == key::enter && canPress(defaultButton) && target->kind() != Kind::Grid)
        defaultButton->clicked();
}

// What a grid has no use for may be meant for a box beside it; the character then starts there from the beginning.
bool Window::typesElsewhere(KeyPress& press) {
    if (m_focus->kind() != Kind::Grid || press.code <= key::space)
        return false;
    const auto& grid = static_cast<const Grid&>(*m_focus);
    TextBox* const box = grid.typesInto ? grid.typesInto(press.code) : nullptr;
    if (box == nullptr || box->readOnly || !box->canTakeFocus())
        return false;
    KeyPress moved{std::exchange(press.code, 0)};
    const int life = m_life;
    if (!mayLeaveFor(*box) || life != m_life)
        return true;
    giveFocus(box);
    if (life == m_life && m_focus == box)
        passKey(moved);
    if (life == m_life && m_focus == box && moved.code > key::space)
        box->setText(text::encode(moved.code));
    return true;
}

std::vector<Control*> Window::behindAccessKey(char32_t key) const {
    std::vector<Control*> found;
    for (Control* control : everything()) {
        if (accessKeyOf(control->caption()) != key)
            continue;
        if (control->kind() == Kind::Frame)
            control = firstStopIn(static_cast<Container&>(*control));
        else if (!control->isShown() || !control->canTakeFocus())
            control = nullptr;
        if (control != nullptr)
            found.push_back(control);
    }
    return found;
}

bool Window::pressAccessKey(char32_t character) {
    if (m_handling || character == 0)
        return false;
    const char32_t key = text::upper(character);
    const std::vector<Control*> found = behindAccessKey(key);
    if (found.empty())
        return key >= U'1' && key <= U'9' && pickPageNumber(static_cast<int>(key - U'0'));
    if (found.size() > 1) {
        const auto here = std::find(found.begin(), found.end(), m_focus);
        requestFocus(here == found.end() || here + 1 == found.end() ? *found.front() : **(here + 1));
        return true;
    }
    Control& target = *found.front();
    const bool isPressed =
        accessKeyOf(target.caption()) == key &&
        (target.kind() == Kind::Button || target.kind() == Kind::CheckBox || target.kind() == Kind::OptionButton);
    if (isPressed)
        click(target);
    else
        requestFocus(target);
    return true;
}

void Window::pressHelp(Desktop& desktop) {
    if (m_handling)
        return;
    // The card is shown within this event, so that no timer of this window opens another one above it.
    handle([&] {
        if (onHelp)
            onHelp();
        else
            showKeyCard(desktop, *this);
    });
}

bool Window::pressArrow(bool backward) {
    if (m_handling || m_focus == nullptr || m_focus->kind() != Kind::OptionButton)
        return false;
    std::vector<OptionButton*> group = static_cast<OptionButton*>(m_focus)->group();
    if (backward)
        std::reverse(group.begin(), group.end());
    const auto here = std::find(group.begin(), group.end(), m_focus);
    std::rotate(group.begin(), here, group.end());
    const auto next =
        std::find_if(group.begin() + 1, group.end(), [](const auto* option) { return option->canTakeFocus(); });
    if (next != group.end())
        click(**next);
    return true;
}

bool Window::pressOptionLetter(char32_t letter) {
    if (m_handling || m_focus == nullptr || m_focus->kind() != Kind::OptionButton || letter <= key::space)
        return false;
    std::vector<OptionButton*> group = static_cast<OptionButton*>(m_focus)->group();
    std::rotate(group.begin(), std::find(group.begin(), group.end(), m_focus) + 1, group.end());
    const auto next = std::find_if(group.begin(), group.end(), [&](const auto* option) {
        return option->canTakeFocus() &&
               text::upper(plainCaption(option->caption())).starts_with(text::encode(text::upper(letter)));
    });
    if (next != group.end())
        click(**next);
    return next != group.end();
}

bool Window::pressArrowDown() {
    if (m_handling || m_focus == nullptr || !m_focus->onArrowDown)
        return false;
    handle([&] { m_focus->onArrowDown(); });
    return true;
}

bool Window::pressLookup() {
    if (m_handling || m_focus == nullptr)
        return false;
    const CodedField* const field = m_focus->coded;
    return field != nullptr && m_focus == &field->code && click(field->lookup);
}

bool Window::pressOnCell(char32_t code) {
    if (m_handling || m_focus == nullptr || m_focus->kind() != Kind::Grid || !static_cast<Grid*>(m_focus)->picksCells)
        return false;
    pressKey(code);
    return true;
}

bool Window::click(Control& control) {
    if (m_handling || !control.isUsable())
        return false;
    if (control.canTakeFocus() && !requestFocus(control))
        return false;
    return control.isShown() && handle([&] {
               control.clicked();
               leaveLookup(*this, control);
           });
}

void Window::doubleClick(Grid& grid) {
    if (m_handling || !grid.isShown() || !grid.isUsable())
        return;
    if (grid.canTakeFocus() && !requestFocus(grid))
        return;
    handle([&] { grid.onDoubleClick(); });
}

void Window::picked(ComboBox& box, int index) {
    handle([&] { box.picked(index); });
}

void Window::pickedCell(Grid& grid, int row, int column) {
    handle([&] { grid.setCurrentCell(row, column); });
}

} // namespace opd::ui
