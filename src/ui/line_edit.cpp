#include "ui/line_edit.h"

#include "base/text/text.h"

#include <algorithm>
#include <utility>

namespace opd::ui {

namespace {

bool isBlank(char32_t character) {
    return character == U' ' || character == U'\n' || character == U'\t' || character == U'\u00A0';
}

/// A sign at which a step by words stops, as it does at a blank.
bool isWordSign(char32_t character) {
    return std::u32string_view{U".,?!@#$:;-<>[](){}=/+%&^*'\"`~|\\"}.find(character) != std::u32string_view::npos;
}

bool isDigitOrBlank(char32_t character) {
    return character == U' ' || (character >= U'0' && character <= U'9');
}

} // namespace

std::size_t places(std::u32string_view characters) {
    const auto isTwo = [](char32_t character) { return character > U'\uFFFF'; };
    return characters.size() + static_cast<std::size_t>(std::count_if(characters.begin(), characters.end(), isTwo));
}

std::string fitting(std::string_view utf8, int maxLength, std::size_t kept) {
    const auto limit = static_cast<std::size_t>(std::max(0, maxLength));
    if (limit == 0)
        return std::string{utf8};
    std::u32string characters = text::decode(utf8).substr(0, limit - std::min(limit, kept));
    while (!characters.empty() && kept + places(characters) > limit)
        characters.pop_back();
    return text::encode(characters);
}

void LineEdit::load(std::string_view utf8, Rules rules) {
    m_rules = std::move(rules);
    m_text = text::decode(utf8);
    m_anchor = m_caret = isMasked() ? 0 : m_text.size();
    m_lastChange = Change::None;
    m_done.clear();
    m_undone.clear();
}

std::string LineEdit::text() const {
    return text::encode(m_text);
}

std::string LineEdit::selection() const {
    const auto [from, to] = std::minmax(m_anchor, m_caret);
    return text::encode(std::u32string_view{m_text}.substr(from, to - from));
}

void LineEdit::place(std::size_t anchor, std::size_t caret) {
    m_anchor = std::min(anchor, m_text.size());
    m_caret = std::min(caret, m_text.size());
    m_lastChange = Change::None;
}

void LineEdit::insert(std::string_view utf8) {
    m_isCut = false;
    if (m_rules.readOnly || utf8.empty())
        return;
    std::u32string characters = text::decode(utf8);
    if (isMasked() && characters.size() == m_rules.mask.size())
        selectAll();
    remember(Change::Insertion);
    removeRange(m_anchor, m_caret);
    if (isMasked()) {
        for (const char32_t character : characters)
            enterIntoMask(character);
        return;
    }
    const std::string fits = fitting(utf8, m_rules.maxLength, places(m_text));
    m_isCut = fits.size() < utf8.size();
    characters = text::decode(fits);
    m_text.insert(m_caret, characters);
    m_anchor = m_caret += characters.size();
}

void LineEdit::eraseSelection() {
    if (m_rules.readOnly || !hasSelection())
        return;
    remember(Change::Deletion);
    removeRange(m_anchor, m_caret);
    m_lastChange = Change::Insertion; // what is put in its place is undone together with it
}

void LineEdit::press(const KeyStroke& key, std::string& clipboard) {
    m_isCut = false;
    if (key.alt)
        return;
    switch (key.key) {
    case Key::Character:
        if (key.control)
            pressLetter(key.letterWithControl(), key.shift, clipboard);
        else
            insert(text::encode(key.character));
        break;
    case Key::Enter:
        insert(m_rules.multiLine ? "\n" : "");
        break;
    case Key::Backspace:
        backspace(key.control);
        break;
    case Key::Delete:
        erase(key.control);
        break;
    case Key::Left:
    case Key::Right:
    case Key::Home:
    case Key::End:
        move(key);
        break;
    default:
        break;
    }
}

void LineEdit::pressLetter(char32_t letter, bool shift, std::string& clipboard) {
    if ((letter == U'C' || letter == U'X') && hasSelection())
        clipboard = selection();
    if (letter == U'X')
        eraseSelection();
    else if (letter == U'A')
        selectAll();
    else if (letter == U'Z' && !shift)
        restore(m_done, m_undone);
    else if (letter == U'Y' || letter == U'Z')
        restore(m_undone, m_done);
}

void LineEdit::move(const KeyStroke& key) {
    std::size_t there = target(key);
    if (isMasked() && there != m_caret)
        there = there > m_caret ? placeFrom(there) : placeBefore(there);
    place(key.shift ? m_anchor : there, there);
}

std::size_t LineEdit::target(const KeyStroke& key) const {
    switch (key.key) {
    case Key::Left:
        return key.control ? wordLeft() : m_caret - std::min<std::size_t>(m_caret, 1);
    case Key::Right:
        return key.control ? wordRight() : std::min(m_caret + 1, m_text.size());
    case Key::Home:
        return key.control ? 0 : lineStart();
    default:
        return key.control ? m_text.size() : lineEnd();
    }
}

std::size_t LineEdit::wordLeft() const {
    std::size_t at = m_caret;
    const auto back = [&](auto&& belongs) {
        while (at > 0 && belongs(m_text[at - 1]))
            --at;
    };
    back(isBlank);
    if (at > 0 && isWordSign(m_text[at - 1]))
        back(isWordSign);
    else
        back([](char32_t character) { return !isBlank(character) && !isWordSign(character); });
    return at;
}

std::size_t LineEdit::wordRight() const {
    std::size_t at = m_caret;
    const auto on = [&](auto&& belongs) {
        while (at < m_text.size() && belongs(m_text[at]))
            ++at;
    };
    if (at < m_text.size() && isWordSign(m_text[at]))
        on(isWordSign);
    else
        on([](char32_t character) { return !isBlank(character) && !isWordSign(character); });
    on(isBlank);
    return at;
}

std::size_t LineEdit::lineStart() const {
    const std::size_t end = m_rules.multiLine && m_caret > 0 ? m_text.rfind(U'\n', m_caret - 1) : std::u32string::npos;
    return end == std::u32string::npos ? 0 : end + 1;
}

std::size_t LineEdit::lineEnd() const {
    return m_rules.multiLine ? std::min(m_text.find(U'\n', m_caret), m_text.size()) : m_text.size();
}

/// The first place at or behind this one that can be written into.
std::size_t LineEdit::placeFrom(std::size_t place) const {
    while (place < m_text.size() && isSeparator(place))
        ++place;
    return place;
}

/// The last place at or before this one that can be written into.
std::size_t LineEdit::placeBefore(std::size_t place) const {
    while (place > 0 && isSeparator(place))
        --place;
    return place;
}

void LineEdit::remember(Change change) {
    if (change != m_lastChange || hasSelection())
        m_done.push_back(state());
    m_lastChange = change;
    m_undone.clear();
}

void LineEdit::removeRange(std::size_t from, std::size_t to) {
    if (from > to)
        std::swap(from, to);
    if (isMasked())
        for (std::size_t place = from; place < to; ++place)
            m_text[place] = isSeparator(place) ? m_text[place] : U' ';
    else
        m_text.erase(from, to - from);
    m_anchor = m_caret = from;
}

void LineEdit::backspace(bool word) {
    if (hasSelection()) {
        eraseSelection();
        return;
    }
    if (m_rules.readOnly || m_caret == 0)
        return;
    remember(Change::Backspace);
    const std::size_t from = word ? wordLeft() : m_caret - 1;
    removeRange(isMasked() ? placeBefore(from) : from, m_caret);
}

void LineEdit::erase(bool word) {
    if (hasSelection()) {
        eraseSelection();
        return;
    }
    if (m_rules.readOnly || m_caret == m_text.size())
        return;
    remember(Change::Deletion);
    removeRange(m_caret, word ? wordRight() : m_caret + 1);
}

void LineEdit::enterIntoMask(char32_t character) {
    const std::size_t place = placeFrom(m_caret);
    if (isDigitOrBlank(character) && place < m_text.size()) {
        m_text[place] = character;
        m_anchor = m_caret = placeFrom(place + 1);
        return;
    }
    // The separator that was just stepped over may be typed all the same.
    const bool steppedOver = m_caret > 0 && isSeparator(m_caret - 1) && m_text[m_caret - 1] == character;
    const std::size_t separator = m_text.find(character, m_caret);
    if (steppedOver || separator == std::u32string::npos || !isSeparator(separator))
        return;
    closePart(separator);
    m_anchor = m_caret = placeFrom(separator);
}

/// Fills the part before a separator up with zeros when there is a digit in it.
void LineEdit::closePart(std::size_t separator) {
    std::size_t start = separator;
    while (start > 0 && !isSeparator(start - 1))
        --start;
    std::u32string digits = m_text.substr(start, separator - start);
    std::erase(digits, U' ');
    if (!digits.empty())
        m_text.replace(start, separator - start, std::u32string(separator - start - digits.size(), U'0') + digits);
}

void LineEdit::restore(std::vector<State>& from, std::vector<State>& to) {
    if (m_rules.readOnly || from.empty())
        return;
    to.push_back(state());
    const State restored = std::move(from.back());
    from.pop_back();
    m_text = restored.text;
    place(restored.anchor, restored.caret);
}

} // namespace opd::ui
