#include "form.h"

#include <gtest/gtest.h>

namespace opd::ui {
namespace {

using Names = std::vector<std::string>;

struct Way {
    const char* name;
    std::function<void(Form&)> go;
    const char* arrives; ///< where the focus is when nothing refuses
};

const std::vector<Way>& waysOut() {
    static const std::vector<Way> ways{
        {"Tab", [](Form& f) { f.window.pressTab(false); }, "second"},
        {"Shift+Tab", [](Form& f) { f.window.pressTab(true); }, "three"},
        {"click on a field", [](Form& f) { f.window.click(f.second); }, "second"},
        {"click on a button", [](Form& f) { f.window.click(f.ok); }, "ok"},
        {"click on an option", [](Form& f) { f.window.click(f.female); }, "female"},
        {"access key of a field", [](Form& f) { f.window.pressAccessKey(U's'); }, "second"},
        {"access key of a button", [](Form& f) { f.window.pressAccessKey(U'o'); }, "ok"},
        {"page change by keys", [](Form& f) { f.window.turnPage(false); }, "two"},
        {"page change by click", [](Form& f) { f.window.pickPage(f.tabs, 2); }, "three"},
        {"double click on a grid", [](Form& f) { f.window.doubleClick(f.grid); }, "grid"},
        {"the desktop asks", [](Form& f) { f.window.requestFocus(f.second); }, "second"},
    };
    return ways;
}

TEST(Focus, EveryWayOutAsksTheFieldOnceAndARefusalKeepsItThere) {
    for (const Way& way : waysOut())
        for (const bool refuses : {true, false}) {
            Form form;
            int asked = 0;
            form.first.onValidate = [&](bool& refuse) {
                EXPECT_EQ(form.focus(), "first") << way.name << ": asked when it had gone already";
                ++asked;
                refuse = refuses;
            };
            form.open();
            way.go(form);
            EXPECT_EQ(asked, 1) << way.name;
            EXPECT_EQ(form.focus(), refuses ? "first" : way.arrives) << way.name;
            EXPECT_EQ(form.view.focused.back(), form.focus()) << way.name;
            if (refuses) {
                EXPECT_TRUE(form.log.empty()) << way.name << ": clicked all the same";
                EXPECT_FALSE(form.female.selected()) << way.name;
                EXPECT_EQ(form.tabs.current(), 0) << way.name;
            }
        }
}

TEST(Focus, AValidationThatMovesTheFocusHasTheLastWord) {
    Form form;
    form.first.onValidate = [&](bool&) { form.window.setFocus(form.three); };
    form.open();
    EXPECT_FALSE(form.window.click(form.ok));
    EXPECT_EQ(form.focus(), "three");
    EXPECT_EQ(form.tabs.current(), 2);
    EXPECT_TRUE(form.log.empty());
}

TEST(Focus, ARequestWhileLoadingIsKeptUntilTheWindowIsShown) {
    Form form;
    form.window.onLoad = [&] {
        form.window.setFocus(form.one);
        form.window.setFocus(form.second);
    };
    form.open();
    EXPECT_EQ(form.view.focused, Names{"second"});
    Form late;
    late.window.onLoad = [&] {
        late.window.setFocus(late.second);
        late.second.setEnabled(false);
    };
    late.open();
    EXPECT_EQ(late.focus(), "first");
}

TEST(Focus, TabGoesThroughAllPagesAndStopsOnceAtAGroupOfOptions) {
    Form form;
    form.female.setSelected(true);
    form.open();
    Names order{form.focus()};
    for (int i = 0; i < 9; ++i) {
        form.window.pressTab(false);
        order.push_back(form.focus());
    }
    EXPECT_EQ(order, (Names{"first", "second", "female", "ok", "cancel", "grid", "one", "two", "three", "first"}));
    EXPECT_EQ(form.tabs.current(), 2);
    Names back;
    for (int i = 0; i < 9; ++i) {
        form.window.pressTab(true);
        back.push_back(form.focus());
    }
    EXPECT_EQ(back, Names(order.rbegin() + 1, order.rend()));
}

TEST(Focus, TabAndTheTurnOfPagesPassByWhatCannotBeReached) {
    Form form;
    form.open();
    form.male.setSelected(true);
    form.male.setEnabled(false);
    form.second.setEnabled(false);
    form.window.pressTab(false);
    EXPECT_EQ(form.focus(), "female") << "the first usable option of a group without a usable choice";
    form.window.setFocus(form.first);
    form.sex.setEnabled(false);
    form.ok.setVisible(false);
    form.cancel.tabStop = false;
    form.grid.setVisible(false);
    form.pageOne.setVisible(false);
    form.window.pressTab(false);
    EXPECT_EQ(form.focus(), "two");

    form.pageOne.setVisible(true);
    form.pageTwo.setEnabled(false);
    EXPECT_EQ(form.focus(), "three");
    form.window.turnPage(false);
    EXPECT_EQ(form.focus(), "one");
    form.window.turnPage(false);
    EXPECT_EQ(form.focus(), "three");
    form.window.turnPage(false);
    form.pageThree.setVisible(false);
    form.window.turnPage(true);
    EXPECT_EQ(form.focus(), "one");
    form.window.pickPage(form.tabs, 1);
    EXPECT_EQ(form.tabs.current(), 0);
}

TEST(Focus, APageWithoutFieldsTakesTheFocusOffTheFieldThatIsNotSeenAnyMore) {
    Form form;
    form.two.setEnabled(false);
    form.open();
    form.window.setFocus(form.one);
    bool refuses = true;
    form.one.onValidate = [&](bool& refuse) { refuse = refuses; };
    form.window.pickPage(form.tabs, 1);
    EXPECT_EQ(form.tabs.current(), 0);
    refuses = false;
    form.window.pickPage(form.tabs, 1);
    EXPECT_EQ(form.tabs.current(), 1);
    EXPECT_EQ(form.focus(), "-");
    EXPECT_EQ(form.view.focused.back(), "-");
}

TEST(Focus, AChangeOfThePageMayMoveTheFocusByItself) {
    Form form;
    form.open();
    form.tabs.onChange = [&] { form.window.setFocus(form.second); };
    form.three.onGotFocus = form.note("three reached");
    form.window.pickPage(form.tabs, 2);
    EXPECT_EQ(form.focus(), "second");
    EXPECT_EQ(form.view.focused.back(), "second");
    EXPECT_TRUE(form.log.empty());
}

TEST(Focus, LeavesAControlThatIsDisabledOrHiddenWithEverythingAroundIt) {
    const std::vector<std::pair<const char*, std::function<void(Form&)>>> ways{
        {"disabled", [](Form& f) { f.female.setEnabled(false); }},
        {"hidden", [](Form& f) { f.female.setVisible(false); }},
        {"frame disabled", [](Form& f) { f.sex.setEnabled(false); }},
        {"frame hidden", [](Form& f) { f.sex.setVisible(false); }},
    };
    for (const auto& [name, take] : ways) {
        Form form;
        form.open();
        form.window.setFocus(form.female);
        form.female.onValidate = [](bool&) { FAIL() << "asked"; };
        form.female.onLostFocus = form.note("left");
        take(form);
        EXPECT_EQ(form.focus(), "ok") << name;
        EXPECT_EQ(form.log, Names{"left"}) << name;
    }
}

TEST(Focus, ATargetThatTheWayPutsOutOfReachIsReplacedByTheNextAndNotClicked) {
    for (const bool inValidation : {true, false}) {
        Form form;
        if (inValidation)
            form.first.onValidate = [&](bool&) { form.ok.setEnabled(false); };
        else
            form.first.onLostFocus = [&] { form.ok.setEnabled(false); };
        form.open();
        EXPECT_FALSE(form.window.click(form.ok));
        EXPECT_EQ(form.focus(), "cancel");
        EXPECT_TRUE(form.log.empty());
    }
}

TEST(Focus, WithNothingLeftToTakeItTheFocusIsNowhere) {
    Window window{"w", "W"};
    TextBox only{window, "only"};
    RecordingView view;
    window.load();
    window.opened(view);
    only.setEnabled(false);
    EXPECT_EQ(window.focus(), nullptr);
    EXPECT_EQ(view.focused, (Names{"only", "-"}));
    window.pressTab(false);
    EXPECT_EQ(window.pressKey(U'a'), U'a');
    only.setEnabled(true);
    window.pressTab(false);
    EXPECT_EQ(window.focus(), &only);
}

} // namespace
} // namespace opd::ui
