#include "ui/window_content.h"

#include "ui/coded_field.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace opd::ui {

namespace {

template <class T> const T& as(const Control& control) {
    return static_cast<const T&>(control);
}
template <class T> T& as(Control& control) {
    return static_cast<T&>(control);
}

/// Takes the change events of controls away until the end of its scope.
class Silence {
  public:
    Silence(Window& window, const std::vector<Control*>& controls)
        : m_window(window), m_ofWindow(std::exchange(window.onContentChange, nullptr)) {
        for (Control* control : controls) {
            take(control->onChange);
            if (control->kind() == Kind::Grid)
                take(as<Grid>(*control).onRowChange);
        }
    }
    ~Silence() {
        m_window.onContentChange = std::move(m_ofWindow);
        for (auto& [place, event] : m_taken)
            *place = std::move(event);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

  private:
    void take(Event<>& event) {
        if (event)
            m_taken.emplace_back(&event, std::exchange(event, nullptr));
    }

    Window& m_window;
    std::function<void(Control&)> m_ofWindow;
    std::vector<std::pair<Event<>*, Event<>>> m_taken;
};

/// An entry by its position where it still reads so, or else the text.
void choose(ComboBox& box, int index, const std::string& text) {
    const auto& items = box.items();
    if (index >= 0 && index < static_cast<int>(items.size()) && items[static_cast<std::size_t>(index)] == text)
        box.select(index);
    else
        box.setText(text);
}

/// The controls that show one and the same thing.
std::vector<const Control*> shownWith(const Control& control) {
    if (control.kind() == Kind::OptionButton) {
        const std::vector<OptionButton*> group = as<OptionButton>(control).group();
        return {group.begin(), group.end()};
    }
    if (control.kind() == Kind::TextBox && as<TextBox>(control).coded != nullptr)
        return {&as<TextBox>(control).coded->code, &as<TextBox>(control).coded->name};
    return {&control};
}

} // namespace

bool WindowContent::State::holdsSameAs(const State& other) const {
    const auto held = [](const State& state) {
        return std::tie(state.visible, state.enabled, state.caption, state.text, state.mask, state.number, state.rows);
    };
    return held(*this) == held(other);
}

WindowContent::WindowContent(const Window& window) {
    for (const Control* control : window.everything())
        m_states[control->name()] = stateOf(*control);
}

WindowContent::State WindowContent::stateOf(const Control& control) {
    State state;
    state.visible = control.visible();
    state.enabled = control.enabled();
    state.caption = control.caption();
    state.refusal = control.refusal();
    switch (control.kind()) {
    case Kind::TextBox:
        state.text = as<TextBox>(control).text();
        break;
    case Kind::MaskedBox:
        state.text = as<MaskedBox>(control).text();
        state.mask = as<MaskedBox>(control).mask();
        state.maxLength = as<MaskedBox>(control).maxLength();
        break;
    case Kind::DatePicker:
        state.moment = as<DatePicker>(control).value();
        break;
    case Kind::ComboBox:
        state.text = as<ComboBox>(control).text();
        state.number = as<ComboBox>(control).index();
        break;
    case Kind::OptionButton:
        state.number = as<OptionButton>(control).selected() ? 1 : 0;
        break;
    case Kind::CheckBox:
        state.number = as<CheckBox>(control).value();
        break;
    case Kind::Tabs:
        state.number = as<Tabs>(control).current();
        break;
    case Kind::Grid:
        state.rows = as<Grid>(control).rows();
        state.row = as<Grid>(control).currentRow();
        state.column = as<Grid>(control).currentColumn();
        break;
    case Kind::Picture:
        state.number = as<Picture>(control).frame();
        state.image = as<Picture>(control).image();
        break;
    default:
        break;
    }
    return state;
}

void WindowContent::restore(Window& window) const {
    restoreWhere([](const Control&) { return true; }, window);
}

void WindowContent::restoreChanges(const WindowContent& before, Window& window) const {
    const auto hasChanged = [&](const Control& control) {
        const std::vector<const Control*> together = shownWith(control);
        return std::any_of(together.begin(), together.end(), [&](const Control* one) { return differs(before, *one); });
    };
    restoreWhere(hasChanged, window);
}

bool WindowContent::differs(const WindowContent& before, const Control& control) const {
    const auto now = m_states.find(control.name());
    const auto then = before.m_states.find(control.name());
    return now != m_states.end() && then != before.m_states.end() && !now->second.holdsSameAs(then->second);
}

void WindowContent::restoreWhere(const std::function<bool(const Control&)>& isMeant, Window& window) const {
    const std::vector<Control*> controls = window.everything();
    const Silence silence(window, controls);
    for (const bool tabs : {false, true}) // a page is shown when it is known to be usable
        for (Control* control : controls)
            if (const auto state = m_states.find(control->name());
                state != m_states.end() && (control->kind() == Kind::Tabs) == tabs && isMeant(*control))
                put(state->second, *control);
}

void WindowContent::put(const State& state, Control& control) {
    switch (control.kind()) {
    case Kind::TextBox:
        as<TextBox>(control).setText(state.text);
        break;
    case Kind::MaskedBox: {
        auto& box = as<MaskedBox>(control);
        if (box.mask() != state.mask || box.maxLength() != state.maxLength)
            box.setMask(state.mask, state.maxLength);
        box.setText(state.text);
        break;
    }
    case Kind::DatePicker:
        as<DatePicker>(control).setValue(state.moment);
        break;
    case Kind::ComboBox:
        choose(as<ComboBox>(control), state.number, state.text);
        break;
    case Kind::OptionButton:
        as<OptionButton>(control).setSelected(state.number == 1);
        break;
    case Kind::CheckBox:
        as<CheckBox>(control).setValue(state.number);
        break;
    case Kind::Tabs:
        as<Tabs>(control).show(state.number);
        break;
    case Kind::Grid: {
        auto& grid = as<Grid>(control);
        grid.show(grid.columns(), state.rows);
        grid.setCurrentCell(state.row, state.column);
        break;
    }
    case Kind::Picture:
        as<Picture>(control).setFrame(state.number);
        as<Picture>(control).setImage(state.image);
        break;
    default:
        break;
    }
    control.setCaption(state.caption);
    control.setEnabled(state.enabled);
    control.setVisible(state.visible);
    control.setRefusal(state.refusal);
}

} // namespace opd::ui
