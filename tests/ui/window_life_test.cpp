#include "form.h"

#include <gtest/gtest.h>

#include <utility>

namespace opd::ui {
namespace {

using Names = std::vector<std::string>;

TEST(WindowFailures, EachGoesToTheWindowOnceAndKeepsTheFocus) {
    const std::vector<std::pair<const char*, std::function<void(Form&)>>> events{
        {"validation",
         [](Form& f) {
             f.first.onValidate = [](bool&) { fail(); };
             f.window.pressTab(false);
         }},
        {"lost focus",
         [](Form& f) {
             f.first.onLostFocus = [] { fail(); };
             f.window.click(f.ok);
         }},
        {"preview",
         [](Form& f) {
             f.window.onKeyPress = [&f](KeyPress&) {
                 f.window.sendTab();
                 fail();
             };
             EXPECT_EQ(f.window.pressKey(U'a'), 0U) << "the event ended before the character reached the field";
         }},
        {"change",
         [](Form& f) {
             f.first.onChange = [] { fail(); };
             f.window.edited(f.first, "x");
         }},
        {"tick",
         [](Form& f) {
             f.timer.onTick = [] { fail(); };
             f.timer.start();
             f.window.tick(f.timer);
         }},
        {"close",
         [](Form& f) {
             f.window.onCloseRequest = [] { fail(); };
             f.window.requestClose();
         }},
    };
    for (const auto& [name, raise] : events) {
        Form form;
        form.open();
        raise(form);
        EXPECT_EQ(form.failures, Names{"broken"}) << name;
        EXPECT_EQ(form.focus(), "first") << name;
        EXPECT_TRUE(form.log.empty()) << name;
        EXPECT_TRUE(form.window.isOpen()) << name;
        form.first.onValidate = nullptr;
        form.first.onLostFocus = nullptr;
        EXPECT_TRUE(form.window.click(form.ok)) << name << ": the window takes no input any more";
    }
}

TEST(WindowFailures, OfAClickIsReportedAndTheClickCountsAsFailed) {
    Form form;
    form.open();
    form.ok.onClick = [] { fail(); };
    EXPECT_FALSE(form.window.click(form.ok));
    EXPECT_EQ(form.failures, Names{"broken"});
    EXPECT_EQ(form.focus(), "ok");
}

TEST(WindowFailures, ThatTheReportItselfLetsThroughLeaveTheWindowAlive) {
    for (const bool reported : {true, false}) {
        Form form;
        form.open();
        if (reported)
            form.window.onFailure = [](const std::exception&) { fail(); };
        else
            form.window.onFailure = nullptr;
        form.ok.onClick = [] { fail(); };
        EXPECT_THROW(form.window.click(form.ok), std::runtime_error);
        EXPECT_TRUE(form.window.click(form.cancel));
    }
}

TEST(WindowLife, AFailingLoadPassesToTheCallerAndMayBeRepeated) {
    Form form;
    form.window.onLoad = [] { fail(); };
    EXPECT_THROW(form.window.load(), std::runtime_error);
    EXPECT_FALSE(form.window.isLoaded());
    form.window.onLoad = form.note("loaded");
    form.open();
    form.window.load();
    EXPECT_EQ(form.log, Names{"loaded"}) << "loaded once until it is unloaded";
}

/// Events in the midst of which a handler closes its window.
const std::vector<std::pair<const char*, std::function<void(Form&, std::function<void()>)>>> places{
    {"click",
     [](Form& f, auto unload) {
         f.ok.onClick = unload;
         f.window.click(f.ok);
     }},
    {"validation",
     [](Form& f, auto unload) {
         f.first.onValidate = [=](bool&) { unload(); };
         f.window.click(f.ok);
     }},
    {"lost focus",
     [](Form& f, auto unload) {
         f.first.onLostFocus = unload;
         f.window.click(f.ok);
     }},
    {"got focus",
     [](Form& f, auto unload) {
         f.ok.onGotFocus = unload;
         f.window.click(f.ok);
     }},
    {"page change",
     [](Form& f, auto unload) {
         f.tabs.onChange = unload;
         f.window.pickPage(f.tabs, 2);
     }},
    {"key",
     [](Form& f, auto unload) {
         f.window.onKeyPress = [=, &f](KeyPress&) {
             f.window.sendTab();
             unload();
         };
         EXPECT_EQ(f.window.pressKey(U'a'), 0U);
     }},
};

TEST(WindowLife, UnloadInAHandlerEndsTheEventThere) {
    for (const auto& [name, raise] : places) {
        Form form;
        form.three.onGotFocus = form.note("three reached");
        form.window.onUnload = form.note("unloaded");
        form.open();
        raise(form, [&] { form.window.unload(); });
        EXPECT_EQ(form.log, Names{"unloaded"}) << name;
        EXPECT_EQ(form.view.closes, 1) << name;
        EXPECT_EQ(form.focus(), "-") << name;
        EXPECT_TRUE(form.failures.empty()) << name;
    }
}

TEST(WindowLife, AWindowThatAHandlerUnloadsAndShowsAgainStartsAfresh) {
    for (const auto& [name, raise] : places) {
        Form form;
        RecordingView next;
        bool again = false;
        form.open();
        raise(form, [&, label = name] {
            if (std::exchange(again, true)) // the new life raises the same events
                return;
            form.window.unload();
            form.window.load();
            form.window.opened(next);
            EXPECT_TRUE(form.window.click(form.male)) << label;
            EXPECT_TRUE(form.male.selected()) << label;
            form.window.setFocus(form.second);
        });
        EXPECT_TRUE(form.window.isOpen()) << name;
        EXPECT_EQ(form.focus(), "second") << name << ": the old event went on in the new life";
        EXPECT_EQ(next.focused.back(), "second") << name;
        EXPECT_TRUE(form.log.empty()) << name;
        EXPECT_TRUE(form.window.click(form.cancel)) << name;
    }
}

TEST(WindowLife, AFailingUnloadStillTakesTheViewAway) {
    Form form;
    form.window.onUnload = [] { fail(); };
    form.open();
    form.window.requestClose();
    EXPECT_EQ(form.failures, Names{"broken"});
    EXPECT_EQ(form.view.closes, 1);
    EXPECT_FALSE(form.window.isLoaded());
}

TEST(WindowLife, InputThatArrivesWhileAHandlerRunsIsIgnored) {
    Form form;
    form.timer.onTick = form.note("tick");
    form.timer.start();
    form.open();
    form.ok.onClick = [&] {
        EXPECT_FALSE(form.window.click(form.cancel));
        EXPECT_FALSE(form.window.click(form.ok));
        EXPECT_EQ(form.window.pressKey(U'a'), 0U);
        EXPECT_FALSE(form.window.pressAccessKey(U's'));
        EXPECT_FALSE(form.window.requestFocus(form.first));
        form.window.pressTab(false);
        form.window.pickPage(form.tabs, 1);
        form.window.tick(form.timer);
        form.window.requestClose();
        EXPECT_EQ(form.focus(), "ok");
    };
    form.window.click(form.ok);
    EXPECT_TRUE(form.window.isOpen());
    EXPECT_EQ(form.tabs.current(), 0);
    EXPECT_TRUE(form.log.empty());
    form.window.tick(form.timer);
    form.timer.stop();
    form.window.tick(form.timer);
    EXPECT_EQ(form.log, Names{"tick"});
}

TEST(WindowLife, AClosedFrameUnloadsWithoutValidationUnlessTheWindowHasItsOwnWay) {
    Form form;
    form.first.onValidate = [](bool&) { FAIL() << "asked"; };
    form.open();
    form.window.onCloseRequest = form.note("asked to close");
    form.window.requestClose();
    EXPECT_TRUE(form.window.isOpen());
    form.window.onCloseRequest = nullptr;
    form.window.requestClose();
    EXPECT_FALSE(form.window.isLoaded());
    EXPECT_EQ(form.log, Names{"asked to close"});
}

TEST(WindowLife, ADoubleClickOnAGridWaitsForTheFieldThatIsLeft) {
    Form form;
    Grid grid{form.window, "grid"};
    grid.onDoubleClick = form.note("opened");
    bool refuses = true;
    form.first.onValidate = [&](bool& refuse) { refuse = refuses; };
    form.open();
    form.window.doubleClick(grid);
    EXPECT_TRUE(form.log.empty());
    refuses = false;
    form.window.doubleClick(grid);
    EXPECT_EQ(form.log, Names{"opened"});
    grid.setEnabled(false);
    form.window.doubleClick(grid);
    EXPECT_EQ(form.log.size(), 1U);
}

} // namespace
} // namespace opd::ui
