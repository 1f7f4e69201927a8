#include "adapters/scripted/scripted_desktop.h"
#include "base/text/text.h"
#include "script/pattern.h"
#include "script/player.h"
#include "support/files.h"

#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace opd::tests {

namespace {

/// A window with a control of every kind that a script can work.
struct SampleForm {
    ui::Window window{"frmSample", "Sample"};
    ui::Frame frame{window, "fraOptions", "Choice"};
    ui::OptionButton first{frame, "optChoice(0)", "&First"};
    ui::OptionButton second{frame, "optChoice(1)", "&Second"};
    ui::TextBox name{window, "txtName(0)", "&Name", 5};
    ui::MaskedBox date{window, "txtDate", "Date"};
    ui::ComboBox status{window, "cboStatus", "Status", {"Single", "Married"}};
    ui::DatePicker day{window, "dtpDay", "Day", ui::DatePicker::Format::Date};
    ui::DatePicker time{window, "dtpTime", "Time", ui::DatePicker::Format::Time};
    ui::CheckBox walkIn{window, "chkWalkIn", "Walk-in"};
    ui::Grid grid{window, "grdRows"};
    ui::Tabs tabs{window, "tabPages"};
    ui::Page onePage{tabs, "pageOne", "One"};
    ui::TextBox onOne{onePage, "txtOne", "One"};
    ui::Page twoPage{tabs, "pageTwo", "Two && More"};
    ui::TextBox onTwo{twoPage, "txtTwo", "Two"};
    ui::Button ask{window, "cmdAsk", "As&k"};
    ui::Button file{window, "cmdFile", "&File"};
    ui::Button close{window, "cmdClose", "&Close"};
    ui::Timer timer{window, "tmrScan", 500};
    ui::TextBox hidden{window, "txtHidden"};
    int ticks = 0;
    int opened = 0;

    explicit SampleForm(ui::Desktop& desktop) {
        window.onKeyPress = [this](ui::KeyPress& press) {
            press.code = text::upper(press.code);
            if (press.code == ui::key::enter)
                window.sendTab();
        };
        name.onValidate = [this](bool& refuse) { refuse = name.text() == "BAD"; };
        name.onChange = [this] { timer.start(); };
        timer.onTick = [this] {
            ++ticks;
            timer.stop();
        };
        grid.show({{"Code"}, {"Name"}}, {{"1", "ONE"}, {"2", "TWO"}});
        grid.onDoubleClick = [this] { ++opened; };
        ask.onClick = [this, &desktop] {
            const ui::Answer answer = desktop.ask({.text = "Really?\r\nSure?", .buttons = ui::Buttons::YesNo});
            name.setText(answer == ui::Answer::Yes ? "YES" : "NO");
        };
        file.onClick = [this, &desktop] {
            if (const auto named = desktop.askFile({.caption = "Save"}))
                name.setText(named->string());
        };
        close.onClick = [this] { window.unload(); };
        close.causesValidation = false;
        window.cancelButton = &close;
        hidden.setVisible(false);
    }
};

struct Played {
    std::optional<std::string> failure;
    std::string output;
    int ticks = 0;
    int opened = 0;
};

Played play(const std::string& text) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder / "script.opd";
    writeFile(file, text);
    std::ostringstream output;
    script::Player player(file, output, {2026, 11, 24, 14, 5, 0});
    adapters::ScriptedDesktop desktop(&player);
    SampleForm form(desktop);
    desktop.showModal(form.window);
    EXPECT_FALSE(form.window.isOpen());
    Played played{desktop.failure(), output.str(), form.ticks, form.opened};
    if (played.failure)
        played.failure = played.failure->substr(played.failure->find(".opd:") + 5);
    return played;
}

TEST(Script, WorksEveryKindOfControlAsAClerkWould) {
    const Played played = play(R"(# a comment
expect-window frmSample
expect-focus optChoice(0)
type txtName(0) "señora"          # no more than five characters
expect txtName(0) "SEÑOR"
wait 499
type txtName(0) 'ab'
wait 500
key Backspace
expect txtName(0) "A"
key Enter
expect-focus txtDate
check chkWalkIn
check chkWalkIn
expect-checked chkWalkIn
double-click grdRows
answer "No" to "Really?\r\nSure?"
click cmdAsk
expect txtName(0) "NO"
answer "Yes" like "Really\?\s+Sure\?"
key Alt+K
print txtName(0)
say "done"
screenshot nowhere.png
key Escape
)");
    EXPECT_EQ(played.failure, std::nullopt) << *played.failure;
    EXPECT_EQ(played.output, "YES\ndone\n");
    EXPECT_EQ(played.ticks, 1);
    EXPECT_EQ(played.opened, 1);
}

TEST(Script, APatternIsComparedWithATextOfAnyLength) {
    const std::string page = std::string(200000, 'a') + "\nDIAGNOSIS  FEVER\n" + std::string(200000, 'b');
    EXPECT_TRUE(script::describes("[\\s\\S]*\\nDIAGNOSIS +FEVER\\n[\\s\\S]*", page));
    EXPECT_FALSE(script::describes("(?![\\s\\S]*FEVER)[\\s\\S]*", page));
    EXPECT_FALSE(script::describes("(a|a)*c", std::string(40000, 'a')));
    EXPECT_TRUE(script::describes("D30[12]", "D302"));
    EXPECT_THROW(script::describes("[", "["), std::runtime_error);
}

TEST(Script, FailuresSayWhereWhatWasExpectedAndWhatWasThere) {
    const struct {
        const char* script;
        const char* failure;
    } cases[] = {
        {"\nexpect txtName(0) \"X\"", "2: expected txtName(0) to read \"X\", but it reads \"\""},
        {"type txtGone 'x'", "1: expected a control txtGone, but frmSample has none"},
        {"type txtHidden 'x'", "1: expected txtHidden to be visible, but it is hidden"},
        {"type txtTwo 'x'", "1: expected txtTwo to be visible, but it is hidden"},
        {"type txtName(0) 'bad'\ntype txtDate '1'", "2: expected txtDate to get the focus, but txtName(0) has it"},
        {"type txtName(0) 'bad'\nkey Tab\nexpect-focus txtDate",
         "3: expected txtDate to have the focus, but txtName(0) has it"},
        {"click cmdAsk", "1: expected no message box, but there is \"Really?\r\nSure?\" (Yes, No)"},
        {"answer 'Yes' to 'Other?'\nclick cmdAsk",
         "1: expected a message box \"Other?\" with a button \"Yes\", but there is \"Really?\r\nSure?\" (Yes, No)"},
        {"answer 'Cancel' like 'Really.*'\nclick cmdAsk",
         "1: expected a message box like \"Really.*\" with a button \"Cancel\", but there is \"Really?\r\nSure?\" "
         "(Yes, No)"},
        {"answer 'Yes' to 'Never?'", "1: expected a message box \"Never?\", but none was shown"},
        {"click cmdFile", "1: expected no question for a file, but there is \"Save\""},
        {"file 'a.pdf'", "1: expected a question for a file, but there was none"},
        {"file 'a.pdf'\nclick cmdFile\nexpect txtName(0) ''",
         "3: expected txtName(0) to read \"\", but it reads \"a.pdf\""},
        {"select cboStatus 'Widow'", "1: expected cboStatus to offer \"Widow\", but it does not"},
        {"expect-rows grdRows 3", "1: expected grdRows to have 3 rows, but it has 2"},
        {"row txtDate 1", "1: expected txtDate to be a grid, but it is none"},
        {"tab 'Three'", "1: expected a tab \"Three\", but frmSample has none"},
        {"expect-window frmOther", "1: expected the window frmOther, but frmSample is shown"},
    };
    for (const auto& failing : cases)
        EXPECT_EQ(play(failing.script).failure.value_or("none"), failing.failure) << failing.script;
}

TEST(Script, ALineThatIsNoCommandIsFoundBeforeAnythingIsPlayed) {
    const struct {
        const char* script;
        const char* reason;
    } cases[] = {{"say 'a'\nclik cmdAsk", ":2: there is no command clik"},
                 {"click", ":1: click takes 1 words, but 0 follow it"},
                 {"say \"open", ":1: a quote (\") is not closed"},
                 {"answer 'Maybe' to 'x'", ":1: no message box has a button \"Maybe\""},
                 {"answer 'Yes' 'x'", ":1: answer is followed by a button, \"to\" or \"like\", and a text"}};
    for (const auto& wrong : cases) {
        const TemporaryFolder folder;
        const std::filesystem::path file = folder / "script.opd";
        writeFile(file, wrong.script);
        try {
            script::Player player(file, std::cout, {2026, 11, 24, 14, 5, 0});
            ADD_FAILURE() << wrong.script;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), file.string() + wrong.reason);
        }
    }
}

} // namespace
} // namespace opd::tests
