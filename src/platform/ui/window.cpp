#include "platform/ui/window.h"

#include "platform/text/text.h"

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
    const auto selected = std::find_if(group.begin(), group.end(), [](const auto* other) {
        return other->selected() && other->canTakeFocus();
    });
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

bool canPress(const Button* button) {
    return button != nullptr && button->isShown() && button->isUsable();
}

/// Marks that a handler runs, until the end of its scope however that comes.
class Handling {
  public:
    explicit Handling(bool& handling) : m_handling(handling) { m_handling = true; }
    ~Handling() { m_handling = false; }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

  private:
    bool& m_handling;
};

} // namespace

// Runs one event. What it throws is reported and ends it; a Tab that it asked for follows when it is done.
template <class Handler>
bool Window::handle(Handler&& handler) {
    if (m_handling) { // a part of the event that runs already, which reports for it
        handler();
        return true;
    }
    bool succeeded = true;
    {
        const Handling handling{m_handling};
        m_pendingTab = false;
        try {
            handler();
        } catch (const std::exception& failure) {
            succeeded = false;
            m_pendingTab = false;
            if (!onFailure)
                throw;
            onFailure(failure);
        }
    }
    if (std::exchange(m_pendingTab, false) && m_open)
        pressTab(false);
    return succeeded;
}

void Window::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    // A window may be loaded again while a handler that unloaded it still runs further up; its new life starts afresh.
    m_handling = false;
    m_pendingTab = false;
    m_focus = nullptr;
    if (!onLoad)
        return;
    try {
        onLoad();
    } catch (...) {
        m_loaded = false;
        throw;
    }
}

void Window::unload() {
    if (!m_loaded)
        return;
    m_loaded = false;
    m_open = false;
    m_focus = nullptr;
    ++m_life;
    WindowView* const view = std::exchange(m_view, nullptr);
    try {
        if (onUnload)
            onUnload();
    } catch (...) { // the window is gone all the same, and its view must not stay behind
        if (view != nullptr)
            view->closed();
        throw;
    }
    if (view != nullptr)
        view->closed();
}

void Window::opened(WindowView& view) {
    m_view = &view;
    m_open = true;
    Control* const wanted = std::exchange(m_focus, nullptr);
    handle([&] { giveFocus(wanted != nullptr && wanted->canTakeFocus() ? wanted : neighbour(nullptr, false)); });
}

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

Control* Window::find(const std::string& name) const {
    std::vector<Control*> everything;
    collect(everything);
    const auto found =
        std::find_if(everything.begin(), everything.end(), [&](const Control* control) { return control->name() == name; });
    return found == everything.end() ? nullptr : *found;
}

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
    if (press.code == key::escape && canPress(cancelButton)) {
        press.drop();
        cancelButton->clicked();
        return;
    }
    if (keyPreview && onKeyPress)
        onKeyPress(press);
    if (target == nullptr || press.code == 0)
        return;
    if (!isGone() && target->onKeyPress)
        target->onKeyPress(press);
    if (isGone())
        press.drop();
    if (press.code == 0)
        return;
    if (target->handleKey(press.code))
        press.drop();
    else if (press.code == key::enter && canPress(defaultButton) && target->kind() != Kind::Grid)
        defaultButton->clicked();
}

void Window::pressTab(bool backward) {
    if (m_handling)
        return;
    if (Control* target = neighbour(m_focus, backward))
        requestFocus(*target);
}

bool Window::pressAccessKey(char32_t character) {
    if (m_handling || character == 0)
        return false;
    std::vector<Control*> everything;
    collect(everything);
    const char32_t wanted = text::upper(character);
    for (Control* control : everything) {
        if (!control->isShown() || !control->canTakeFocus() || accessKeyOf(control->caption()) != wanted)
            continue;
        const Kind kind = control->kind();
        if (kind == Kind::Button || kind == Kind::CheckBox || kind == Kind::OptionButton)
            click(*control);
        else
            requestFocus(*control);
        return true;
    }
    return false;
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

void Window::turnPage(bool backward) {
    std::vector<Control*> everything;
    collect(everything);
    const auto found =
        std::find_if(everything.begin(), everything.end(), [](const auto* control) { return control->kind() == Kind::Tabs; });
    if (found == everything.end())
        return;
    auto& tabs = static_cast<Tabs&>(**found);
    const int count = static_cast<int>(tabs.pages().size());
    for (int step = 1; step < count; ++step) {
        const int index = (tabs.current() + (backward ? count - step : step)) % count;
        const Page& page = *tabs.pages()[static_cast<std::size_t>(index)];
        if (page.visible() && page.isUsable()) {
            pickPage(tabs, index);
            return;
        }
    }
}

void Window::pickPage(Tabs& tabs, int index) {
    if (m_handling)
        return;
    std::vector<Control*> onPage;
    tabs.pages().at(static_cast<std::size_t>(index))->collect(onPage);
    const auto first = std::find_if(onPage.begin(), onPage.end(), [](const auto* control) { return isTabStop(*control); });
    if (first != onPage.end())
        requestFocus(**first);
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

bool Window::click(Control& control) {
    if (m_handling || !control.isShown() || !control.isUsable())
        return false;
    if (control.canTakeFocus() && !requestFocus(control))
        return false;
    return handle([&] { control.clicked(); });
}

void Window::doubleClick(Grid& grid) {
    if (m_handling || !grid.isShown() || !grid.isUsable())
        return;
    if (grid.canTakeFocus() && !requestFocus(grid))
        return;
    handle([&] {
        if (grid.onDoubleClick)
            grid.onDoubleClick();
    });
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
    if (m_focus == nullptr || !m_focus->onValidate || !target.causesValidation)
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
    if (target != nullptr && target->onGotFocus)
        target->onGotFocus();
}

// While its handler runs the focus is nowhere; when that fails it stays where it was.
void Window::loseFocus() {
    Control* const left = std::exchange(m_focus, nullptr);
    if (left == nullptr || !left->onLostFocus)
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

Control* Window::neighbour(const Control* from, bool backward) const {
    std::vector<Control*> order;
    collect(order);
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

void Window::edited(TextBox& box, const std::string& text) {
    handle([&] { box.setText(text); });
}

void Window::edited(MaskedBox& box, const std::string& text) {
    handle([&] { box.setText(text); });
}

void Window::edited(DatePicker& picker, const DateTime& value) {
    handle([&] { picker.setValue(value); });
}

void Window::picked(ComboBox& box, int index) {
    handle([&] { box.picked(index); });
}

void Window::pickedRow(Grid& grid, int row) {
    handle([&] { grid.setCurrentRow(row); });
}

void Window::tick(Timer& timer) {
    if (m_handling || !timer.running())
        return;
    handle([&] {
        if (timer.onTick)
            timer.onTick();
    });
}

void Window::requestClose() {
    if (m_handling)
        return;
    handle([&] {
        if (onCloseRequest)
            onCloseRequest();
        else
            unload();
    });
}

void Window::tellView(Control& control, Aspect aspect) {
    if (m_view != nullptr)
        m_view->changed(control, aspect);
}

void Window::leaveUnusable() {
    if (!m_open || m_focus == nullptr || m_focus->canTakeFocus())
        return;
    giveFocus(neighbour(m_focus, false));
}

} // namespace opd::ui
