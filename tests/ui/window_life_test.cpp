#include "form.h"

#include <gtest/gtest.h>

#include <utility>

namespace opd::ui {
namespace {

using Names = std::vector<std::string>;

/// Events whose handler is given.
struct Event {
    const char* name;
    const char* focus; ///< where it is when the handler fails
    std::function<void(Form&, std::function<void()>)> raise;
};

const std::vector<Event> events{
    {"click", "ok",
     [](Form& f, auto handler) {
         f.ok.onClick = handler;
         f.window.click(f.ok);
     }},
    {"validation", "first",
     [](Form& f, auto handler) {
         f.first.onValidate = [=](bool&) { handler(); };
         f.window.click(f.ok);
     }},
    {"lost focus", "first",
     [](Form& f, auto handler) {
         f.first.onLostFocus = handler;
         f.window.click(f.ok);
     }},
    {"got focus", "ok",
     [](Form& f, auto handler) {
         f.ok.onGotFocus = handler;
         f.window.click(f.ok);
     }},
    {"page change", "three",
     [](Form& f, auto handler) {
         f.tabs.onChange = handler;
         f.window.pickPage(f.tabs, 2);
     }},
    {"key", "first",
     [](Form& f, auto handler) {
         f.window.onKeyPress = [=, &f](KeyPress&) {
             f.window.sendTab();
             handler();
         };
         EXPECT_EQ(f.window.pressKey(U'a'), 0U) << "the event ended before the character reached the field";
     }},
    {"change", "first",
     [](Form& f, auto handler) {
         f.first.onChange = handler;
         f.window.edited(f.first, "x");
     }},
    {"tick", "first",
     [](Form& f, auto handler) {
         f.timer.onTick = handler;
         f.timer.start();
         f.window.tick(f.timer);
     }},
    {"close", "first",
     [](Form& f, auto handler) {
         f.window.onCloseRequest = handler;
         f.window.requestClose();
     }},
};

TEST(WindowFailures, EachGoesToTheWindowOnceAndEndsTheEventThere) {
    for (const auto& [name, focus, raise] : events) {
        Form form;
        form.open();
        raise(form, fail);
        EXPECT_EQ(form.failures, Names{"broken"}) << name;
        EXPECT_EQ(form.focus(), focus) << name;
        EXPECT_TRUE(form.log.empty()) << name;
        EXPECT_TRUE(form.window.isOpen()) << name;
        form.first.onLostFocus = nullptr;
        EXPECT_TRUE(form.window.click(form.cancel)) << name << ": the window takes no input any more";
    }
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

TEST(WindowLife, UnloadInAHandlerEndsTheEventThere) {
    for (const auto& [name, focus, raise] : events) {
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
    for (const auto& [name, focus, raise] : events) {
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

TEST(WindowLife, ATabAskedForInOneLifeIsNotPressedInTheNext) {
    Form form;
    RecordingView next;
    form.open();
    form.ok.onClick = [&] {
        form.window.sendTab();
        form.window.unload();
        form.window.load();
        form.window.opened(next);
    };
    form.window.click(form.ok);
    EXPECT_EQ(form.focus(), "first");
}

TEST(WindowLife, AClosedFrameUnloadsWithoutValidationEvenWhenTheUnloadFails) {
    Form form;
    form.first.onValidate = [](bool&) { FAIL() << "asked"; };
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

} // namespace
} // namespace opd::ui
