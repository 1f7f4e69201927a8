#include "base/text/text.h"
#include "ui/line_edit.h"
#include "ui/window.h"

#include <algorithm>

namespace opd::ui {

namespace {

/// The ends that two texts have in common, as numbers of characters; they do not overlap.
struct Common {
    std::size_t atStart = 0;
    std::size_t atEnd = 0;
};

Common common(std::u32string_view left, std::u32string_view right) {
    Common same;
    const std::size_t most = std::min(left.size(), right.size());
    while (same.atStart < most && left[same.atStart] == right[same.atStart])
        ++same.atStart;
    while (same.atEnd < most - same.atStart &&
           left[left.size() - 1 - same.atEnd] == right[right.size() - 1 - same.atEnd])
        ++same.atEnd;
    return same;
}

bool hasLines(const Control& field) {
    return field.kind() == Kind::TextBox && static_cast<const TextBox&>(field).multiLine;
}

/// Whether the clerk may write there at all.
bool takesText(const Control& field) {
    return field.kind() == Kind::MaskedBox || field.kind() == Kind::DatePicker ||
           (field.kind() == Kind::TextBox && !static_cast<const TextBox&>(field).readOnly);
}

bool isMasked(const Control& field) {
    return field.kind() == Kind::MaskedBox && !static_cast<const MaskedBox&>(field).mask().empty();
}

/// A date or a time, which nothing but digits can be put into.
bool takesDigits(const Control& field) {
    return field.kind() == Kind::DatePicker || isMasked(field);
}

constexpr const char* notEveryCharacter = "This field does not take every character: some were left out.";

/// A text without control characters: those at its ends go, others in a row are one blank.
std::u32string inOneLine(std::u32string_view characters) {
    const auto isControl = [](char32_t character) { return character < key::space; };
    std::u32string line;
    bool parted = false;
    for (const char32_t character : characters) {
        if (!isControl(character) && parted && !line.empty())
            line += key::space;
        if (!isControl(character))
            line += character;
        parted = isControl(character);
    }
    return line;
}

std::string plain(const Control& field, const std::string& text) {
    if (hasLines(field))
        return text::replaced(TextBox::withLineEnds(text), "\t", " ");
    return text::encode(inOneLine(text::decode(text)));
}

} // namespace

bool Window::breaksLines() const {
    return m_focus != nullptr && hasLines(*m_focus) && takesText(*m_focus);
}

std::string Window::passed(Control& field, const std::string& text) {
    if (m_handling || !takesText(field) || !requestFocus(field))
        return {};
    std::string content = plain(field, text);
    if (field.kind() == Kind::MaskedBox)
        content = static_cast<const MaskedBox&>(field).spelled(content);
    else if (field.kind() == Kind::DatePicker)
        content = DatePicker::spelled(content);
    sayLeftOut({});
    if (takesDigits(field) && content.find_first_of("0123456789") == std::string::npos) {
        sayLeftOut(notEveryCharacter); // nor does it take the place of what is selected
        return {};
    }
    return text::encode(filtered(field, text::decode(content)));
}

/// What the window lets through of some characters, one by one, while the field keeps the focus. It says when that was
/// not all.
std::u32string Window::filtered(const Control& field, std::u32string_view characters) {
    std::u32string kept;
    const int life = m_life;
    for (const char32_t character : characters) {
        const char32_t code = character < key::space ? character : pressKey(character);
        if (life != m_life || m_focus != &field)
            return {};
        if (code != 0)
            kept += code;
    }
    if (kept.size() < characters.size())
        sayLeftOut(notEveryCharacter);
    return kept;
}

/// A content whose new part has passed the filters and is cut to what there is room for. The places of a mask take
/// digits alone and cut nothing.
template <class Box> std::string Window::withFiltered(Box& box, const std::string& text) {
    if (isMasked(box))
        return text;
    const std::u32string before = text::decode(box.text());
    const std::u32string after = text::decode(plain(box, text));
    const Common same = common(before, after);
    const std::u32string start = after.substr(0, same.atStart), end = after.substr(after.size() - same.atEnd);
    const std::string middle =
        text::encode(filtered(box, after.substr(same.atStart, after.size() - same.atStart - same.atEnd)));
    const std::string fits = fitting(middle, box.maxLength(), places(start) + places(end));
    if (fits.size() < middle.size())
        foundNoRoom(box.maxLength());
    return text::encode(start) + fits + text::encode(end);
}

// What arrives while a message box or another window waits for the clerk is refused, as a key would be.
template <class Box> void Window::write(Box& box, const std::string& text) {
    if (text == box.text())
        return;
    const int life = m_life;
    if (!m_handling && takesText(box) && requestFocus(box)) {
        sayLeftOut({});
        const std::string content = withFiltered(box, text);
        if (life == m_life && m_focus == &box)
            edited(box, content);
    }
    if (life == m_life)
        tellView(box, Aspect::Text);
}

void Window::written(TextBox& box, const std::string& text) {
    write(box, text);
}

void Window::written(MaskedBox& box, const std::string& text) {
    write(box, text);
}

// A picker that is left puts its own half-typed part right; that belongs to the event that runs.
void Window::written(DatePicker& picker, const DateTime& value) {
    if (value == picker.value())
        return;
    const int life = m_life;
    if (m_handling || requestFocus(picker))
        edited(picker, value);
    if (life == m_life)
        tellView(picker, Aspect::Text);
}

void Window::written(DatePicker& picker, const std::string& text) {
    const int life = m_life;
    if (!m_handling && requestFocus(picker))
        edited(picker, text);
    if (life == m_life)
        tellView(picker, Aspect::Text);
}

void Window::edited(TextBox& box, const std::string& text) {
    const std::string before = box.text();
    handle([&] { box.setText(text); });
    enterWhenFull(box, before, box.text());
}

void Window::edited(MaskedBox& box, const std::string& text) {
    const std::string before = box.text();
    handle([&] { box.setText(text); });
    enterWhenFull(box, before, box.text());
}

/// Goes on from a field that has just been filled to its last place, one place at a time: what was pasted, or put right
/// in its middle, is looked at first.
void Window::enterWhenFull(const Control& field, const std::string& before, const std::string& now) {
    if (!field.entersWhenFull || &field != m_focus || m_handling)
        return;
    const auto placesLeft = [&](const std::string& text) {
        const bool isMask = field.kind() == Kind::MaskedBox;
        const int most = isMask ? 0 : static_cast<const TextBox&>(field).maxLength();
        return isMask ? static_cast<int>(std::count(text.begin(), text.end(), ' '))
                      : most - static_cast<int>(text::decode(text).size());
    };
    if (placesLeft(before) == 1 && placesLeft(now) == 0)
        pressKey(key::enter);
}

void Window::edited(DatePicker& picker, const DateTime& value) {
    handle([&] { picker.setValue(value); });
}

void Window::edited(DatePicker& picker, const std::string& text) {
    handle([&] { picker.write(text); });
}

} // namespace opd::ui
