#include "form.h"

#include "base/text/text.h"
#include "ui/coded_field.h"

#include <gtest/gtest.h>

namespace opd::ui {
namespace {

using Names = std::vector<std::string>;

TEST(Keys, ATabThatAHandlerSendsFollowsWhenTheEventIsDone) {
    Form form;
    form.window.onKeyPress = [&](KeyPress& press) {
        if (press.code == key::enter)
            form.window.sendTab();
    };
    form.first.onKeyPress = [&](KeyPress& press) {
        EXPECT_EQ(form.focus(), "first");
        EXPECT_EQ(press.code, key::enter) << "the character itself still reaches the control";
    };
    bool refuses = true;
    form.first.onValidate = [&](bool& refuse) { refuse = refuses; };
    form.open();
    form.window.pressKey(key::enter);
    EXPECT_EQ(form.focus(), "first") << "the sent Tab asks as a typed one does";
    refuses = false;
    form.window.pressKey(key::enter);
    EXPECT_EQ(form.focus(), "second");
    form.second.onKeyPress = [&](KeyPress&) { form.window.setFocus(form.three); };
    form.window.pressKey(key::enter);
    EXPECT_EQ(form.focus(), "three") << "a later setFocus takes the Tab's place";
}

TEST(Keys, EscapeIsTheBusinessOfAControlThatWantsIt) {
    Form form;
    form.window.cancelButton = &form.cancel;
    form.first.onEscape = form.note("escaped");
    form.first.onValidate = [](bool&) { FAIL() << "asked"; };
    form.open();
    EXPECT_EQ(form.window.pressKey(key::escape), 0U);
    EXPECT_EQ(form.log, Names{"escaped"});
}

TEST(Keys, ACharacterThatAGridHasNoUseForBeginsTheBoxThatItNames) {
    Form form;
    Grid grid{form.window, "grid"};
    std::u32string filtered;
    grid.onKeyPress = [](KeyPress& press) { press.code = press.code == U'-' ? 0 : press.code; };
    grid.typesInto = [&](char32_t code) { return code >= U'0' && code <= U'9' ? &form.first : &form.second; };
    form.first.onKeyPress = [&](KeyPress& press) { filtered += press.code; };
    form.second.onKeyPress = [](KeyPress& press) { press.code = text::upper(press.code); };
    form.first.setText("old");
    form.open();
    const auto typeOnGrid = [&](char32_t code) {
        form.window.setFocus(grid);
        EXPECT_EQ(form.window.pressKey(code), code == key::space ? code : 0U) << static_cast<unsigned>(code);
        return form.focus() + " " + form.first.text() + " " + form.second.text();
    };
    EXPECT_EQ(typeOnGrid(U'-'), "grid old ");
    EXPECT_EQ(typeOnGrid(U' '), "grid old ");
    EXPECT_EQ(typeOnGrid(U'7'), "first 7 ");
    EXPECT_EQ(filtered, U"7");
    EXPECT_EQ(typeOnGrid(U'ñ'), "second 7 Ñ");
    form.second.setEnabled(false);
    form.window.setFocus(grid);
    EXPECT_EQ(form.window.pressKey(U'x'), U'x') << "a box that is out of reach takes nothing";
    grid.onValidate = [](bool& refuse) { refuse = true; };
    EXPECT_EQ(typeOnGrid(U'8'), "grid 7 Ñ");
}

TEST(Keys, EnterPressesTheButtonThatHasTheFocusElseTheDefaultButton) {
    Form form;
    form.window.defaultButton = &form.ok;
    form.open();
    form.window.pressKey(key::enter);
    EXPECT_EQ(form.log, Names{"ok clicked"});
    form.window.setFocus(form.cancel);
    EXPECT_EQ(form.window.pressKey(key::enter), 0U);
    EXPECT_EQ(form.window.pressKey(key::space), 0U);
    EXPECT_EQ(form.log, (Names{"ok clicked", "cancel clicked", "cancel clicked"}));
    form.window.setFocus(form.first);
    form.ok.setVisible(false);
    EXPECT_EQ(form.window.pressKey(key::enter), key::enter);
    EXPECT_EQ(form.log.size(), 3U);
    form.ok.setVisible(true);
    Grid grid{form.window, "grid"};
    grid.onKeyPress = [&](KeyPress&) { form.log.push_back("opened"); };
    form.window.setFocus(grid);
    form.window.pressKey(key::enter);
    EXPECT_EQ(form.log.back(), "opened") << "Enter in a grid belongs to the grid";
}

TEST(Keys, AnAccessKeyReachesOnlyWhatIsShownAndUsable) {
    Form form;
    form.two.onClick = form.note("two clicked");
    form.open();
    EXPECT_TRUE(form.window.pressAccessKey(U'S')) << "the label beside a field";
    EXPECT_EQ(form.focus(), "second");
    EXPECT_TRUE(form.window.pressAccessKey(U'e'));
    EXPECT_TRUE(form.female.selected());
    EXPECT_FALSE(form.window.pressAccessKey(U't')) << "on a page that is not shown";
    form.window.pickPage(form.tabs, 1);
    EXPECT_TRUE(form.window.pressAccessKey(U't'));
    EXPECT_TRUE(form.two.checked());
    form.ok.setEnabled(false);
    EXPECT_FALSE(form.window.pressAccessKey(U'o'));
    EXPECT_FALSE(form.window.pressAccessKey(U'z'));
    EXPECT_FALSE(form.window.pressAccessKey(0)) << "a control without an access key is no match for no key";
    EXPECT_EQ(form.log, Names{"two clicked"});
}

TEST(Keys, ArrowsMoveThroughAGroupOfOptionsAndRoundItsEnds) {
    Form form;
    form.female.onClick = form.note("female clicked");
    form.open();
    EXPECT_FALSE(form.window.pressArrow(false)) << "a text box keeps its arrows";
    form.window.setFocus(form.male);
    EXPECT_TRUE(form.window.pressArrow(false));
    EXPECT_EQ(form.focus(), "female");
    EXPECT_TRUE(form.female.selected());
    EXPECT_EQ(form.log, Names{"female clicked"});
    form.window.pressArrow(false);
    EXPECT_TRUE(form.male.selected());
    form.window.pressArrow(true);
    EXPECT_TRUE(form.female.selected());
    EXPECT_FALSE(form.male.selected());
    form.male.setEnabled(false);
    EXPECT_TRUE(form.window.pressArrow(false));
    EXPECT_EQ(form.focus(), "female");
    form.female.setSelected(false);
    EXPECT_EQ(form.window.pressKey(key::space), 0U);
    EXPECT_TRUE(form.female.selected());
}

TEST(Keys, F4ClicksTheLookupButtonOfTheCode) {
    Window window{"w", "W"};
    Frame frame{window, "frame", "Doctors"};
    TextBox code{frame, "code"};
    Button lookup{frame, "lookup", "..."};
    TextBox name{frame, "name"};
    const CodedField coded{code, lookup, name};
    Button save{frame, "save", "Save"};
    ComboBox list{frame, "list"};
    Button unlikely{frame, "unlikely", "..."};
    TextBox last{frame, "last"};
    Button outside{window, "outside", "..."};
    Names clicked;
    for (Button* button : {&lookup, &save, &unlikely, &outside})
        button->onClick = [&clicked, button] { clicked.push_back(button->name()); };
    RecordingView view;
    window.load();
    window.opened(view);
    for (Control* elsewhere : std::vector<Control*>{&name, &list, &last, &lookup, &outside}) {
        window.setFocus(*elsewhere);
        EXPECT_FALSE(window.pressLookup()) << elsewhere->name();
        EXPECT_EQ(window.focus(), elsewhere);
    }
    window.setFocus(code);
    code.onValidate = [](bool& refuse) { refuse = true; };
    EXPECT_TRUE(window.pressLookup()) << "the button asks for the code in another way";
    EXPECT_EQ(clicked, Names{"lookup"});
    window.setFocus(code);
    lookup.setVisible(false);
    EXPECT_FALSE(window.pressLookup());
    EXPECT_EQ(window.focus(), &code);
    EXPECT_EQ(clicked, Names{"lookup"});
}

TEST(Keys, ACharacterEndsWhereAHandlerTakesItsControlAway) {
    Form form;
    form.open();
    form.window.setFocus(form.ok);
    form.window.onKeyPress = [&](KeyPress&) { form.ok.setEnabled(false); };
    EXPECT_EQ(form.window.pressKey(key::enter), 0U);
    EXPECT_TRUE(form.log.empty());
    form.cancel.onKeyPress = [&](KeyPress&) { form.window.unload(); };
    form.window.onKeyPress = nullptr;
    form.window.setFocus(form.cancel);
    EXPECT_EQ(form.window.pressKey(key::enter), 0U);
    EXPECT_TRUE(form.log.empty()) << "a button of a closed window was pressed";
}

TEST(Keys, CaptionsMarkTheirAccessKey) {
    const std::vector<std::tuple<const char*, char32_t, const char*>> captions{
        {"&Search", U'S', "Search"},
        {"New &patient", U'P', "New patient"},
        {"Diagnosis && History", 0, "Diagnosis & History"},
        {"A && &b", U'B', "A & b"},
        {"Ni&ño", U'Ñ', "Niño"},
        {"Plain", 0, "Plain"},
        {"", 0, ""},
        {"ends &", 0, "ends &"},
    };
    for (const auto& [caption, accessKey, plain] : captions) {
        EXPECT_EQ(accessKeyOf(caption), accessKey) << caption;
        EXPECT_EQ(plainCaption(caption), plain);
    }
}

} // namespace
} // namespace opd::ui
