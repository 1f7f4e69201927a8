#include "ui/key_card.h"

#include "base/text/text.h"
#include "ui/coded_field.h"
#include "ui/desktop.h"
#include "ui/spoken_names.h"

#include <algorithm>

namespace opd::ui {

namespace {

std::vector<const Control*> controlsOf(const Window& window) {
    std::vector<const Control*> seen;
    for (const Control* control : window.everything())
        if (!control->isHidden())
            seen.push_back(control);
    return seen;
}

bool offersCalendar(const Control& control) {
    if (control.kind() == Kind::MaskedBox)
        return static_cast<const MaskedBox&>(control).offersCalendar;
    return control.kind() == Kind::DatePicker &&
           static_cast<const DatePicker&>(control).format() == DatePicker::Format::Date;
}

bool isMemo(const Control& control) {
    return control.kind() == Kind::TextBox && static_cast<const TextBox&>(control).multiLine;
}

bool picksCells(const Control& control) {
    return control.kind() == Kind::Grid && static_cast<const Grid&>(control).picksCells;
}

/// What works because a control of some sort is there.
std::vector<KeyNote> keysOfKinds(const std::vector<const Control*>& controls) {
    struct Sort {
        bool (*isOne)(const Control&);
        std::vector<KeyNote> keys;
    };
    const Sort sorts[] = {
        {[](const Control& one) { return one.kind() == Kind::Tabs; },
         {{"Ctrl+Tab", "next tab"}, {"Alt+1, Alt+2 ...", "tab of that number"}}},
        {isLookup, {{"F4", "list of the codes"}}},
        {offersCalendar, {{"F4, Alt+Down", "calendar of a date"}}},
        {isMemo, {{"Shift+Enter", "new line in a memo"}}},
        {picksCells, {{"F2, Enter", "edit a cell"}, {"Delete", "take the row away"}}},
    };
    std::vector<KeyNote> keys;
    for (const Sort& sort : sorts)
        if (std::any_of(controls.begin(), controls.end(), [&](const Control* one) { return sort.isOne(*one); }))
            keys.insert(keys.end(), sort.keys.begin(), sort.keys.end());
    return keys;
}

std::vector<KeyNote> accessKeys(const Window& window, const std::vector<const Control*>& controls) {
    const SpokenNames names(window);
    std::vector<KeyNote> keys;
    for (const Control* control : controls)
        if (const char32_t key = accessKeyOf(control->caption()); key != 0)
            keys.push_back({"Alt+" + text::encode(key), names.of(*control)});
    return keys;
}

constexpr int keyWidth = 1700; // twips
constexpr int deedWidth = 3300;

/// The notes in two columns, read down the first and then down the second.
std::vector<Grid::Row> inTwoColumns(const std::vector<KeyNote>& notes) {
    const std::size_t height = (notes.size() + 1) / 2;
    std::vector<Grid::Row> rows;
    for (std::size_t i = 0; i < height; ++i) {
        const KeyNote second = height + i < notes.size() ? notes[height + i] : KeyNote{};
        rows.push_back({notes[i].key, notes[i].deed, second.key, second.deed});
    }
    return rows;
}

} // namespace

std::vector<KeyNote> keysOf(const Window& window) {
    const std::vector<const Control*> controls = controlsOf(window);
    std::vector<KeyNote> keys{{"Tab, Shift+Tab", "next field, field before"}};
    for (const std::vector<KeyNote>& more : {window.ownKeys, keysOfKinds(controls)})
        keys.insert(keys.end(), more.begin(), more.end());
    if (window.cancelButton != nullptr)
        keys.push_back({"Esc", plainCaption(window.cancelButton->caption())});
    keys.push_back({"F1", "these keys"});
    const std::vector<KeyNote> access = accessKeys(window, controls);
    keys.insert(keys.end(), access.begin(), access.end());
    return keys;
}

KeyCard::KeyCard(const Window& about) : Window("frmKeyCard") {
    setCaption("Keys of \"" + std::string{about.caption()} + "\"");
    m_fields.grdKeys.spokenName = "Keys";
    m_fields.grdKeys.show(
        {{"Key", keyWidth}, {"What it does", deedWidth}, {"Key", keyWidth}, {"What it does", deedWidth}},
        inTwoColumns(keysOf(about)));
    m_fields.cmdClose.onClick = [this] { unload(); };
    onHelp = [this] { unload(); };
    cancelButton = &m_fields.cmdClose;
    onKeyPress = [this](KeyPress& press) {
        if (press.code == key::enter)
            unload();
    };
}

void showKeyCard(Desktop& desktop, const Window& about) {
    KeyCard card(about);
    desktop.showModal(card);
    card.unload();
}

} // namespace opd::ui
