#include "ui/spoken_names.h"

#include "base/text/text.h"
#include "ui/coded_field.h"
#include "ui/report_pane.h"

#include <algorithm>
#include <map>

namespace opd::ui {

namespace {

/// A caption without its access key, the blanks around it and the colon behind it.
std::string spokenCaption(std::string_view caption) {
    std::string spoken = text::trimmed(plainCaption(caption));
    while (!spoken.empty() && spoken.back() == ':')
        spoken = text::trimmed(spoken.substr(0, spoken.size() - 1));
    return spoken;
}

bool isField(const Control& control) {
    switch (control.kind()) {
    case Kind::TextBox:
    case Kind::MaskedBox:
    case Kind::DatePicker:
    case Kind::ComboBox:
        return true;
    default:
        return false;
    }
}

/// The member of the same container that was registered before a control, or null.
const Control* before(const Control& control) {
    const Control* previous = nullptr;
    for (const Control* member : control.container()->members()) {
        if (member == &control)
            break;
        previous = member;
    }
    return previous;
}

/// The nearest container around a control that has a caption, or null. Pages and the window are none of them.
const Container* frameAround(const Control& control) {
    for (const Container* outer = control.container(); outer != nullptr; outer = outer->container())
        if (outer->kind() == Kind::Frame && !spokenCaption(outer->caption()).empty())
            return outer;
    return nullptr;
}

const Container* pageAround(const Control& control) {
    const Container* outer = control.container();
    while (outer != nullptr && outer->kind() != Kind::Page)
        outer = outer->container();
    return outer;
}

std::string nameByItself(const Control& control);

/// The name of a field without a label: of the code that it explains, of the box, label or date before it, or of its
/// frame.
std::string nameOfBareField(const Control& control) {
    const Control* const previous = before(control);
    if (control.coded != nullptr && &control == &control.coded->name)
        return nameByItself(control.coded->code) + " name";
    if (previous != nullptr && control.kind() == Kind::DatePicker)
        return nameByItself(*previous) + " time";
    if (previous != nullptr && (previous->kind() == Kind::Label || previous->kind() == Kind::CheckBox))
        return nameByItself(*previous);
    const Container* const frame = frameAround(control);
    return frame == nullptr ? std::string{} : spokenCaption(frame->caption());
}

/// The name that a control has before it is told apart from others; empty for what has none.
std::string nameByItself(const Control& control) {
    if (!control.spokenName.empty())
        return std::string{control.spokenName};
    if (isLookup(control))
        return "Look up " + nameByItself(control.coded->code);
    if (std::string caption = spokenCaption(control.caption()); !caption.empty())
        return caption;
    if (control.floatsOver != nullptr)
        return nameByItself(*control.floatsOver) + " entry";
    if (isField(control) || control.kind() == Kind::Grid)
        return nameOfBareField(control);
    return {};
}

/// A name led by the caption of what is around the control: "Father: Name", "Employed? Yes", "Services 1".
std::string ledBy(const Container* around, const std::string& name) {
    if (around == nullptr)
        return name;
    const std::string lead = spokenCaption(around->caption());
    const bool needsColon = lead.back() != '?' && (name[0] < '0' || name[0] > '9');
    return lead == name ? name : lead + (needsColon ? ": " : " ") + name;
}

/// Which names several controls of one kind share.
std::map<std::pair<Kind, std::string>, int> counted(const std::unordered_map<const Control*, std::string>& names) {
    std::map<std::pair<Kind, std::string>, int> counts;
    for (const auto& [control, name] : names)
        ++counts[{control->kind(), name}];
    return counts;
}

/// The name of a code field inside those of its lookup button and its name box is led by the frame, not they
/// themselves.
std::string apart(const Control& control, const Container* (*around)(const Control&), const std::string& name) {
    const std::string lookUp = "Look up ";
    if (control.spokenName.empty() && isLookup(control) && name.compare(0, lookUp.size(), lookUp) == 0)
        return lookUp + ledBy(around(control), name.substr(lookUp.size()));
    return ledBy(around(control), name);
}

} // namespace

SpokenNames::SpokenNames(const Window& window) {
    for (const Control* control : window.everything())
        m_names[control] = nameByItself(*control);
    for (const auto around : {frameAround, pageAround}) {
        const auto counts = counted(m_names);
        for (auto& [control, name] : m_names)
            if (!name.empty() && control->kind() != Kind::Label && counts.at({control->kind(), name}) > 1)
                name = apart(*control, around, name);
    }
}

const std::string& SpokenNames::of(const Control& control) const {
    static const std::string none;
    const auto found = m_names.find(&control);
    return found == m_names.end() ? none : found->second;
}

std::string tipOf(const Control& control, const SpokenNames& names) {
    if (!control.tip.empty())
        return std::string{control.tip};
    if (isLookup(control))
        return names.of(control) + " (F4)";
    if (control.kind() == Kind::Page)
        return "Alt+" + std::to_string(static_cast<const Page&>(control).index() + 1);
    return {};
}

} // namespace opd::ui
