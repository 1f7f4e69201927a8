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

bool isContainer(Kind kind) {
    return kind == Kind::Frame || kind == Kind::Page || kind == Kind::Tabs || kind == Kind::Window;
}

} // namespace

Control::Control(Kind kind, Container* container, std::string name, std::string caption)
    : m_kind(kind), m_container(container), m_name(std::move(name)), m_caption(std::move(caption)) {
    if (m_container != nullptr)
        m_container->m_members.push_back(this);
}

Window& Control::window() const {
    const Control* control = this;
    while (control->m_container != nullptr)
        control = control->m_container;
    return const_cast<Window&>(static_cast<const Window&>(*control));
}

void Control::setCaption(const std::string& caption) {
    if (caption == m_caption)
        return;
    m_caption = caption;
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

void Control::setRefusal(const std::string& refusal) {
    if (refusal == m_refusal)
        return;
    m_refusal = refusal;
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
    if (onClick)
        onClick();
}

void Control::tellView(Aspect aspect) {
    window().tellView(*this, aspect);
}

void Control::raiseChange() {
    if (onChange)
        onChange();
    if (Window& changed = window(); changed.onContentChange)
        changed.onContentChange(*this);
}

std::vector<Control*> Container::everything() const {
    std::vector<Control*> all;
    collect(all);
    return all;
}

void Container::collect(std::vector<Control*>& everything) const {
    for (Control* member : m_members) {
        everything.push_back(member);
        if (isContainer(member->kind()))
            static_cast<const Container*>(member)->collect(everything);
    }
}

char32_t accessKeyOf(const std::string& caption) {
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

std::string plainCaption(const std::string& caption) {
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size())
            ++i;
        plain += caption[i];
    }
    return plain;
}

} // namespace opd::ui
