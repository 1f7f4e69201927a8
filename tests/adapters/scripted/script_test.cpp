// What scripts that go well do, the operator scripts show.
#include "adapters/scripted/scripted_desktop.h"
#include "script/pattern.h"
#include "script/player.h"
#include "support/files.h"

#include <gtest/gtest.h>
#include <sstream>

namespace opd::tests {

namespace {

/// A window with what a script may find otherwise than it expects.
struct SampleForm {
    ui::Window window{"frmSample", "Sample"};
    ui::TextBox name{window, "txtName(0)", "&Name", 5};
    ui::MaskedBox date{window, "txtDate", "Date"};
    ui::ComboBox status{window, "cboStatus", "Status", {"Single", "Married"}};
    ui::Grid grid{window, "grdRows"};
    ui::Tabs tabs{window, "tabPages"};
    ui::Page onePage{tabs, "pageOne", "One"};
    ui::Page twoPage{tabs, "pageTwo", "Two"};
    ui::TextBox onTwo{twoPage, "txtTwo", "Two"};
    ui::Button ask{window, "cmdAsk", "As&k"};
    ui::Button file{window, "cmdFile", "&File"};
    ui::TextBox hidden{window, "txtHidden"};

    explicit SampleForm(ui::Desktop& desktop) {
        name.onValidate = [this](bool& refuse) { refuse = name.text() == "bad"; };
        grid.show({{"Code"}, {"Name"}}, {{"1", "ONE"}, {"2", "TWO"}});
        ask.onClick = [&desktop] { desktop.ask({.text = "Really?\r\nSure?", .buttons = ui::Buttons::YesNo}); };
        file.onClick = [this, &desktop] {
            if (const auto named = desktop.askFile({.caption = "Save"}))
                name.setText(named->string());
        };
        hidden.setVisible(false);
    }
};

/// What a script fails with, from the number of its line on, behind what it printed so far.
std::string failureOf(const std::string& text) {
    const TemporaryFolder folder;
    writeFile(folder / "script.opd", text);
    std::ostringstream output;
    std::string failure = "none.opd:none";
    try {
        script::Player player(folder / "script.opd", output, {2026, 11, 24, 14, 5, 0});
        adapters::ScriptedDesktop desktop(&player);
        SampleForm form(desktop);
        desktop.showModal(form.window);
        EXPECT_FALSE(form.window.isOpen());
        failure = desktop.failure().value_or(failure);
    } catch (const std::runtime_error& error) {
        failure = error.what();
    }
    return output.str() + failure.substr(failure.find(".opd:") + 5);
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
        {"say 'done'", "done\nnone"},
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
        // What is no command is found before anything is played.
        {"say 'a'\nclik cmdAsk", "2: there is no command clik"},
        {"click", "1: click takes 1 words, but 0 follow it"},
        {"say \"open", "1: a quote (\") is not closed"},
        {"answer 'Maybe' to 'x'", "1: no message box has a button \"Maybe\""},
        {"answer 'Yes' 'x'", "1: answer is followed by a button, \"to\" or \"like\", and a text"},
    };
    for (const auto& failing : cases)
        EXPECT_EQ(failureOf(failing.script), failing.failure) << failing.script;
}

} // namespace
} // namespace opd::tests
