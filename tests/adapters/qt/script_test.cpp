#include "support/files.h"
#include "tests/adapters/qt/desk.h"

#include <sstream>

namespace opd::qt {
namespace {

/// A search window that asks before it opens the registration form, as the real ones do, played by a script.
struct Play {
    tests::TemporaryFolder folder;
    std::ostringstream printed;
    std::optional<std::string> failure;
    std::optional<ui::Answer> answer;

    explicit Play(const std::string& script) {
        const std::string file = (folder / "a.opd").string();
        tests::writeFile(file, script);
        script::Player player(file, printed, {2026, 11, 24, 14, 5, 0});
        QtDesktop desktop(&player);
        samples::SearchWindow search;
        samples::RegistrationWindow form;
        search.cancelButton = &search.close;
        search.close.onClick = [&] { search.unload(); };
        search.newPatient.onClick = [&] {
            answer = desktop.ask({"Are you sure?\r\nReally?", "Verification", ui::Buttons::YesNoCancel});
            if (answer != ui::Answer::Yes)
                return;
            search.unload();
            desktop.showModal(form);
        };
        form.buttons.cmdCancel.onClick = [&] { form.unload(); };
        desktop.showModal(search);
        failure = desktop.failure();
        if (failure)
            failure->erase(0, failure->find("a.opd"));
        EXPECT_EQ(desktop.currentShell(), nullptr);
        EXPECT_FALSE(search.isOpen() || form.isOpen());
    }
};

TEST(QtScript, AnUnexpectedBoxOrAnUnmetExpectationClosesEverything) {
    const Play box("click Command1(3)\nexpect-window frmRegistration\n");
    EXPECT_EQ(box.failure,
              "a.opd:1: expected no message box, but there is \"Are you sure?\r\nReally?\" (Yes, No, Cancel)");
    EXPECT_EQ(box.answer, ui::Answer::Cancel);
    const Play text("type txtName(0) \"CRUZ\"\nexpect txtName(0) \"REYES\"\nkey Escape\n");
    EXPECT_EQ(text.failure, "a.opd:2: expected txtName(0) to read \"REYES\", but it reads \"CRUZ\"");
}

TEST(QtScript, AScriptThatEndsClosesWhatIsStillOpen) {
    const Play play(
        "answer \"Yes\" like \"Are you sure.\\\\s+Really.\"\nclick Command1(3)\nscreenshot none/such/none.png\n");
    EXPECT_EQ(play.failure, "a.opd:3: the picture none/such/none.png cannot be written");
    const Play quiet("expect-window frmMasterSearch\n");
    EXPECT_EQ(quiet.failure, std::nullopt);
}

} // namespace
} // namespace opd::qt
