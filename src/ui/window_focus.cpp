#include "ui/coded_field.h"
#include "ui/window.h"

#include <algorithm>
#include <utility>

namespace opd::ui {

namespace {

/// The page that holds a control, or null.
Page* pageOf(Control& control) {
    for (Container* outer = control.container(); outer != nullptr; outer = outer->container())
        if (outer->kind() == Kind::Page)
            return static_cast<Page*>(outer);
    return nullptr;
}

void showPageOf(Control& control) {
    if (Page* page = pageOf(control))
        static_cast<Tabs&>(*page->container()).show(page->index());
}

/// True when Tab stops here: of a group of options only at the selected one, or at the first when none is.
bool isTabStop(const Control& control) {
    if (!control.tabStop || !control.canTakeFocus())
        return false;
    if (control.kind() != Kind::OptionButton)
        return true;
    const auto& option = static_cast<const OptionButton&>(control);
    const std::vector<OptionButton*> group = option.group();
    const auto selected = std::find_if(group.begin(), group.end(),
                                       [](const auto* other) { return other->selected() && other->canTakeFocus(); });
    if (selected != group.end())
        return *selected == &option;
    const auto first =
        std::find_if(group.begin(), group.end(), [](const auto* other) { return other->canTakeFocus(); });
    return *first == &option;
}

bool sameOptionGroup(const Control& left, const Control& right) {
    return left.kind() == Kind::OptionButton && right.kind() == Kind::OptionButton &&
           left.container() == right.container();
}

/// A lookup button asks for its code in another way: moving there does not ask the code.
bool asksFor(const Control& target, const Control& left) {
    return isLookup(target) && &target.coded->code == &left;
}

} // namespace

void Window::setFocus(Control& target) {
    if (!target.canTakeFocus())
        return;
    m_pendingTab = false;
    m_focusSetByProgram = true;
    if (m_open)
        giveFocus(&target);
    else
        m_focus = &target;
}

bool Window::requestFocus(Control& target) {
    if (m_handling || !target.canTakeFocus())
        return false;
    if (&target == m_focus)
        return true;
    bool moved = false;
    const int life = m_life;
    handle([&] {
        if (!mayLeaveFor(target) || !m_open || life != m_life)
            return;
        giveFocus(&target);
        moved = m_focus == &target;
    });
    return moved;
}

bool Window::mayLeaveFor(const Control& target) {
    completeDate();
    if (m_focus == nullptr || !target.causesValidation || asksFor(target, *m_focus))
        return true;
    if (m_focus->kind() == Kind::DatePicker && !static_cast<DatePicker&>(*m_focus).settle()) {
        giveFocus(m_focus); // it is written anew
        return false;
    }
    if (!m_focus->onValidate)
        return true;
    m_focusSetByProgram = false;
    bool refuse = false;
    m_focus->onValidate(refuse);
    return !refuse && !m_focusSetByProgram;
}

void Window::giveFocus(Control* target) {
    if (target == m_focus && target != nullptr) {
        if (m_view != nullptr)
            m_view->focusMoved(target);
        return;
    }
    const int life = m_life;
    loseFocus();
    if (!m_open || life != m_life || m_focus != nullptr)
        return;
    // What ran on the way may have put the target out of reach; the focus then goes to the one behind it.
    if (target != nullptr && !target->canTakeFocus())
        target = neighbour(target, false);
    m_focus = target;
    if (target != nullptr)
        showPageOf(*target);
    if (m_focus != target || life != m_life) // the change of the page has moved the focus by itself
        return;
    if (m_view != nullptr)
        m_view->focusMoved(target);
    if (target != nullptr)
        target->onGotFocus();
}

// The rules about a date look at it when the clerk is done with it, and so does whoever reads it then.
void Window::completeDate() {
    if (m_focus == nullptr || m_focus->kind() != Kind::MaskedBox)
        return;
    auto& box = static_cast<MaskedBox&>(*m_focus);
    box.setText(box.spelled(box.text()));
}

// While its handler runs the focus is nowhere; when that fails it stays where it was.
void Window::loseFocus() {
    sayLeftOut({});
    completeDate();
    Control* const left = std::exchange(m_focus, nullptr);
    if (left != nullptr && left->kind() == Kind::DatePicker)
        static_cast<DatePicker&>(*left).giveUpDraft();
    if (left == nullptr)
        return;
    const int life = m_life;
    try {
        left->onLostFocus();
    } catch (...) {
        if (life == m_life && m_focus == nullptr && left->canTakeFocus())
            m_focus = left;
        throw;
    }
}

void Window::leaveUnusable() {
    if (!m_open || m_focus == nullptr || m_focus->canTakeFocus())
        return;
    giveFocus(neighbour(m_focus, false));
}

void Window::pressTab(bool backward) {
    if (m_handling)
        return;
    if (Control* target = neighbour(m_focus, backward))
        requestFocus(*target);
}

Control* Window::neighbour(const Control* from, bool backward) const {
    std::vector<Control*> order = everything();
    if (backward)
        std::reverse(order.begin(), order.end());
    const auto here = std::find(order.begin(), order.end(), from);
    if (here != order.end())
        std::rotate(order.begin(), here, order.end());
    for (Control* candidate : order)
        if (candidate != from && isTabStop(*candidate) && (from == nullptr || !sameOptionGroup(*from, *candidate)))
            return candidate;
    return nullptr;
}

Tabs* Window::tabs() const {
    for (Control* control : everything())
        if (control->kind() == Kind::Tabs)
            return static_cast<Tabs*>(control);
    return nullptr;
}

void Window::turnPage(bool backward) {
    Tabs* const turned = tabs();
    if (turned == nullptr)
        return;
    const int count = static_cast<int>(turned->pages().size());
    for (int step = 1; step < count; ++step) {
        const int index = (turned->current() + (backward ? count - step : step)) % count;
        const Page& page = *turned->pages()[static_cast<std::size_t>(index)];
        if (page.visible() && page.isUsable()) {
            pickPage(*turned, index);
            return;
        }
    }
}

bool Window::pickPageNumber(int number) {
    Tabs* const picked = tabs();
    if (picked == nullptr || number < 1 || number > static_cast<int>(picked->pages().size()))
        return false;
    pickPage(*picked, number - 1);
    return true;
}

Control* Window::firstStopIn(const Container& container) const {
    for (Control* control : container.everything())
        if (isTabStop(*control))
            return control;
    return nullptr;
}

void Window::pickPage(Tabs& tabs, int index) {
    if (m_handling)
        return;
    if (Control* first = firstStopIn(*tabs.pages().at(static_cast<std::size_t>(index))))
        requestFocus(*first);
    else
        handle([&] { showEmptyPage(tabs, index); });
}

// A page without a field leaves the focus nowhere: what is typed must not reach a field that nobody sees.
void Window::showEmptyPage(Tabs& tabs, int index) {
    const Page& page = *tabs.pages().at(static_cast<std::size_t>(index));
    const int life = m_life;
    if (!page.visible() || !page.isUsable() || page.isCurrent() || !mayLeaveFor(page) || life != m_life)
        return;
    tabs.show(index);
    if (m_focus != nullptr && !m_focus->isShown())
        giveFocus(nullptr);
}

} // namespace opd::ui
