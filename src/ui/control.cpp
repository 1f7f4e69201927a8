#include "ui/control.h"

#include "base/text/text.h"
#include "ui/controls.h"
#include "ui/window.h"

namespace opd::ui {

namespace {

bool takesFocus(Kind kind) {
    switch (kind) {
    case Kind::TextBox:
    case Kind::MaskedBox:
    case Kind::DatePicker:
    case Kind::ComboBox:
    case Kind::OptionButton:
    case Kind::CheckBox:
    case Kind::Button:
    case Kind::Grid:
        return true;
    default:
        return false;
    }
}

} // namespace

std::string Name::text() const {
    std::string text{m_name};
    return m_index == none ? text : text + "(" + std::to_string(m_index) + ")";
}

Control::Control(Kind kind, Container* container, Name name, Literal caption)
    : m_kind(kind), m_container(container), m_name(name), m_caption(caption) {
    if (m_container != nullptr)
        m_container->m_members.add(*this);
}

Window& Control::window() const {
    const Control* control = this;
    while (control->m_container != nullptr)
        control = control->m_container;
    return const_cast<Window&>(static_cast<const Window&>(*control));
}

Container* Control::asContainer() {
    const bool isOne = m_kind == Kind::Frame || m_kind == Kind::Page || m_kind == Kind::Tabs || m_kind == Kind::Window;
    return isOne ? static_cast<Container*>(this) : nullptr;
}

void Control::setCaption(std::string_view caption) {
    if (caption == this->caption())
        return;
    m_caption.set(caption);
    tellView(Aspect::Caption);
}

void Control::setVisible(bool visible) {
    if (visible == m_visible)
        return;
    m_visible = visible;
    tellView(Aspect::Visible);
    window().leaveUnusable();
}

void Control::setEnabled(bool enabled) {
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    tellView(Aspect::Enabled);
    window().leaveUnusable();
}

void Control::setRefusal(std::string_view refusal) {
    if (refusal == this->refusal())
        return;
    m_refusal.set(refusal);
    tellView(Aspect::Refusal);
}

void Control::setNeeded(bool isNeeded) {
    if (isNeeded == m_isNeeded)
        return;
    m_isNeeded = isNeeded;
    tellView(Aspect::Need);
}

bool Control::isShown() const {
    if (!m_visible)
        return false;
    if (m_kind == Kind::Page && !static_cast<const Page*>(this)->isCurrent())
        return false;
    return m_container == nullptr || m_container->isShown();
}

bool Control::isUsable() const {
    return m_enabled && (m_container == nullptr || m_container->isUsable());
}

bool Control::canTakeFocus() const {
    return takesFocus(m_kind) && isUsable() && !isHidden();
}

bool Control::isHidden() const {
    return !m_visible || (m_container != nullptr && m_container->isHidden());
}

void Control::clicked() {
    onClick();
}

void Control::tellView(Aspect aspect) {
    window().tellView(*this, aspect);
}

void Control::raiseChange() {
    onChange();
    if (Window& changed = window(); changed.onContentChange)
        changed.onContentChange(*this);
}

void Members::add(Control& control) {
    (m_last == nullptr ? m_first : m_last->m_next) = &control;
    m_last = &control;
}

std::vector<Control*> Container::everything() const {
    std::vector<Control*> all;
    forEach([&](Control& control) { all.push_back(&control); });
    return all;
}

char32_t accessKeyOf(std::string_view caption) {
    const std::u32string characters = text::decode(caption);
    for (std::size_t i = 0; i + 1 < characters.size(); ++i) {
        if (characters[i] != U'&')
            continue;
        if (characters[i + 1] != U'&')
            return text::upper(characters[i + 1]);
        ++i;
    }
    return 0;
}

std::string plainCaption(std::string_view caption) {
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size())
            ++i;
        plain += caption[i];
    }
    return plain;
}

} // namespace opd::ui
