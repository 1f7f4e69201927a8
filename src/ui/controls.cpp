#include "ui/controls.h"

#include "base/text/text.h"
#include "ui/window.h"

#include <algorithm>
#include <utility>

namespace opd::ui {

void TextBox::showOnly() {
    readOnly = true;
    tabStop = false;
}

void TextBox::setText(const std::string& text) {
    if (text == m_text)
        return;
    m_text = text;
    tellView(Aspect::Text);
    raiseChange();
}

std::string TextBox::withLineEnds(const std::string& text) {
    const std::string plain = text::replaced(text::replaced(text, "\r\n", "\n"), "\r", "\n");
    return text::replaced(plain, "\n", "\r\n");
}

namespace {

/// True when the text fills the mask, with a digit or a blank in each place.
bool fits(const std::string& text, const std::string& mask) {
    return text.size() == mask.size() &&
           std::equal(text.begin(), text.end(), mask.begin(), [](char character, char place) {
               const bool digitOrBlank = character == ' ' || (character >= '0' && character <= '9');
               return place == '#' ? digitOrBlank : character == place;
           });
}

constexpr int firstYear = 1753; // of the calendar that databases reckon with

/// A date in any spelling that a clerk may leave it in. Blanks inside are places of a mask that were passed over.
std::optional<DateTime> dateSpelled(const std::string& text) {
    const std::optional<DateTime> date = parseDate(text);
    return date ? date : parseDate(text::replaced(text, " ", ""));
}

std::optional<DateTime> storableDate(const std::string& text) {
    const std::optional<DateTime> date = dateSpelled(text);
    return date && date->year >= firstYear ? date : std::nullopt;
}

} // namespace

void MaskedBox::setMask(std::string_view mask, int maxLength) {
    m_mask = mask;
    m_maxLength = maxLength;
    m_text = blankText();
    tellView(Aspect::Text);
}

std::string MaskedBox::blankText() const {
    return text::replaced(m_mask, "#", " ");
}

void MaskedBox::setText(const std::string& text) {
    const std::string fitted = m_mask.empty() || fits(text, m_mask) ? text : blankText();
    if (fitted == m_text)
        return;
    m_text = fitted;
    tellView(Aspect::Text);
    raiseChange();
}

std::string MaskedBox::spelled(const std::string& text) const {
    return m_mask == dateMask ? DatePicker::spelled(text) : text;
}

std::string DatePicker::spelled(const std::string& text) {
    const std::optional<DateTime> date = dateSpelled(text);
    return date ? dateText(*date) : text;
}

void DatePicker::setValue(const DateTime& value) {
    giveUpDraft();
    if (value == m_value)
        return;
    m_value = value;
    tellView(Aspect::Text);
    raiseChange();
}

// Typed over a date digit by digit, the text is a date in between, too; one with a place left is not.
void DatePicker::write(const std::string& text) {
    const bool isWhole = text.find(' ') == std::string::npos;
    const std::optional<DateTime> date = isWhole ? storableDate(text) : std::nullopt;
    if (date) {
        take(*date);
        return;
    }
    m_draft = text;
    tellView(Aspect::Text);
}

bool DatePicker::settle() {
    if (m_draft.empty())
        return true;
    const std::optional<DateTime> date = storableDate(m_draft);
    if (date)
        take(*date);
    else
        setRefusal(noDate);
    return date.has_value();
}

void DatePicker::giveUpDraft() {
    if (refusal() == noDate)
        setRefusal({});
    if (std::exchange(m_draft, {}).empty())
        return;
    tellView(Aspect::Text);
}

/// The time of day stays as it is.
void DatePicker::take(const DateTime& day) {
    setValue({day.year, day.month, day.day, m_value.hour, m_value.minute, m_value.second});
}

std::string DatePicker::text() const {
    return m_format == Format::Date ? dateText(m_value) : timeText(m_value);
}

void ComboBox::add(const std::string& item) {
    m_items.push_back(item);
    tellView(Aspect::Items);
}

void ComboBox::setText(const std::string& text) {
    if (text == m_text)
        return;
    m_text = text;
    const auto entry = std::find(m_items.begin(), m_items.end(), text);
    m_index = entry == m_items.end() ? -1 : static_cast<int>(entry - m_items.begin());
    tellView(Aspect::Text);
    raiseChange();
}

void ComboBox::select(int index) {
    const std::string& entry = m_items.at(static_cast<std::size_t>(index));
    if (index == m_index)
        return;
    m_text = entry;
    m_index = index; // entries may read alike, so the position is kept and not looked up
    tellView(Aspect::Text);
    raiseChange();
}

void ComboBox::picked(int index) {
    select(index);
    clicked();
}

std::vector<OptionButton*> OptionButton::group() const {
    std::vector<OptionButton*> options;
    for (Control* member : container()->members())
        if (member->kind() == Kind::OptionButton)
            options.push_back(static_cast<OptionButton*>(member));
    return options;
}

OptionButton& OptionButton::firstOfGroup() const {
    for (Control* member : container()->members())
        if (member->kind() == Kind::OptionButton)
            return static_cast<OptionButton&>(*member);
    throw std::logic_error("An option is no member of its container.");
}

void OptionButton::setSelected(bool selected) {
    if (selected == m_selected)
        return;
    if (selected)
        for (Control* member : container()->members())
            if (member->kind() == Kind::OptionButton)
                static_cast<OptionButton*>(member)->setSelected(false);
    m_selected = selected;
    tellView(Aspect::Checked);
}

void OptionButton::clicked() {
    setSelected(true);
    Control::clicked();
}

bool OptionButton::handleKey(char32_t code) {
    if (code != key::space)
        return false;
    clicked();
    return true;
}

void CheckBox::setValue(int value) {
    if (value == m_value)
        return;
    m_value = value;
    tellView(Aspect::Checked);
}

void CheckBox::clicked() {
    setChecked(!checked());
    Control::clicked();
}

bool CheckBox::handleKey(char32_t code) {
    if (code != key::space)
        return false;
    clicked();
    return true;
}

bool Button::handleKey(char32_t code) {
    if (code != key::space && code != key::enter)
        return false;
    clicked();
    return true;
}

Page::Page(Tabs& tabs, Name name, Literal caption)
    : Container(Kind::Page, &tabs, name, caption), m_tabs(tabs), m_index(static_cast<int>(tabs.m_pages.size())) {
    tabs.m_pages.push_back(this);
}

bool Page::isCurrent() const {
    return m_tabs.current() == m_index;
}

void Tabs::show(int index) {
    const Page& page = *m_pages.at(static_cast<std::size_t>(index));
    if (index == m_current || !page.isUsable() || !page.visible())
        return;
    m_current = index;
    tellView(Aspect::CurrentPage);
    raiseChange();
}

std::string Tabs::shownText() const {
    return std::string{m_pages.at(static_cast<std::size_t>(m_current))->caption()};
}

void Picture::setFrame(int frame) {
    if (frame == m_frame)
        return;
    m_frame = frame;
    tellView(Aspect::Image);
}

void Picture::setImage(SharedImage image) {
    m_image = std::move(image);
    tellView(Aspect::Image);
}

std::string Picture::shownText() const {
    return m_image ? std::to_string(m_image->width) + "x" + std::to_string(m_image->height) : std::string{};
}

void Timer::start() {
    m_running = true;
    tellView(Aspect::Running);
}

void Timer::stop() {
    m_running = false;
    tellView(Aspect::Running);
}

} // namespace opd::ui
