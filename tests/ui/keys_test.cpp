#include "form.h"

#include "ui/coded_field.h"

#include <gtest/gtest.h>

namespace opd::ui {
namespace {

using Names = std::vector<std::string>;

TEST(Keys, WhatAGridHasNoUseForIsNotTypedIntoABoxThatIsOutOfReach) {
    Form form;
    form.grid.typesInto = [&](char32_t) { return &form.second; };
    form.open();
    form.window.setFocus(form.grid);
    EXPECT_EQ(form.window.pressKey(key::space), key::space) << "a blank begins nothing";
    form.second.setEnabled(false);
    EXPECT_EQ(form.window.pressKey(U'x'), U'x');
    form.second.setEnabled(true);
    form.grid.onValidate = [](bool& refuse) { refuse = true; };
    EXPECT_EQ(form.window.pressKey(U'8'), 0U);
    EXPECT_EQ(form.focus() + form.second.text(), "grid");
}

TEST(Keys, EnterPressesTheButtonThatHasTheFocusElseTheDefaultButton) {
    Form form;
    form.window.defaultButton = &form.ok;
    form.open();
    const auto enterOn = [&](Control& control) {
        form.log.clear();
        form.window.setFocus(control);
        form.window.pressKey(key::enter);
        return form.log;
    };
    EXPECT_EQ(enterOn(form.first), Names{"ok clicked"});
    EXPECT_EQ(enterOn(form.cancel), Names{"cancel clicked"});
    EXPECT_EQ(enterOn(form.grid), Names{}) << "Enter in a grid belongs to the grid";
    form.ok.setVisible(false);
    EXPECT_EQ(enterOn(form.first), Names{});
}

TEST(Keys, F4ClicksTheLookupButtonOfTheCodeAndAsksNobody) {
    Form form;
    Button lookup{form.window, "lookup", "..."};
    const CodedField coded{form.first, lookup, form.second};
    lookup.onClick = form.note("listed");
    form.first.onValidate = [](bool&) { FAIL() << "the button asks for the code in another way"; };
    form.open();
    EXPECT_TRUE(form.window.pressLookup());
    EXPECT_EQ(form.focus(), "first");
    lookup.setVisible(false);
    EXPECT_FALSE(form.window.pressLookup());
    lookup.setVisible(true);
    form.window.setFocus(form.second);
    EXPECT_FALSE(form.window.pressLookup());
    EXPECT_EQ(form.log, Names{"listed"});
}

TEST(Keys, AnAccessKeyOrADoubleClickReachesOnlyWhatIsShownAndUsable) {
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
    form.grid.setEnabled(false);
    form.window.doubleClick(form.grid);
    EXPECT_EQ(form.log, Names{"two clicked"});
}

TEST(Keys, ArrowsMoveRoundAGroupOfOptionsPastThoseThatAreOutOfReach) {
    Form form;
    OptionButton unknown{form.sex, "unknown", "Unknown"};
    form.open();
    form.window.setFocus(form.male);
    EXPECT_TRUE(form.window.pressArrow(true));
    EXPECT_EQ(form.focus(), "unknown");
    EXPECT_TRUE(unknown.selected());
    form.female.setEnabled(false);
    form.window.pressArrow(true);
    EXPECT_EQ(form.focus(), "male");
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

TEST(Keys, TextThatAnotherProgramWritesPassesTheFiltersWhereItIsNew) {
    Form form;
    form.open();
    std::u32string asked;
    form.second.onKeyPress = [&](KeyPress& press) { asked += press.code; };
    for (const auto& [written, now, isNew] :
         {std::tuple{"\r\nMA\t", "MA", U"MA"}, std::tuple{"MA\n", "MA", U""}, std::tuple{"MANA", "MANA", U"NA"},
          std::tuple{"MA\r\n\tÑANA", "MA ÑANA", U" ÑA"}, std::tuple{"ÑANA", "ÑANA", U""}}) {
        asked.clear();
        form.window.written(form.second, written);
        EXPECT_EQ(form.second.text(), now);
        EXPECT_EQ(asked, isNew) << now;
    }
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
