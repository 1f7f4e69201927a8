#include "support/files.h"
#include "tests/adapters/qt/desk.h"

#include <sstream>

namespace opd::qt {
namespace {

/// What playing a script fails with, on a search window that asks before it leads on.
std::string failureOf(const std::string& script) {
    const tests::TemporaryFolder folder;
    tests::writeFile(folder / "a.opd", script);
    std::ostringstream printed;
    script::Player player(folder / "a.opd", printed, {2026, 11, 24, 14, 5, 0});
    QtDesktop desktop(&player);
    samples::SearchWindow search;
    samples::RegistrationWindow form;
    search.newPatient.onClick = [&] {
        if (desktop.ask({"Sure?", "Verification", ui::Buttons::YesNoCancel}) == ui::Answer::Yes)
            desktop.showModal(form);
    };
    desktop.showModal(search);
    EXPECT_EQ(desktop.currentShell(), nullptr);
    EXPECT_FALSE(search.isOpen() || form.isOpen());
    const std::optional<std::string> failure = desktop.failure();
    return failure ? failure->substr(failure->find(".opd:") + 5) : "";
}

TEST(QtScript, ThatEndsOrFailsClosesWhatIsStillOpen) {
    EXPECT_EQ(failureOf("expect-window frmMasterSearch\n"), "");
    EXPECT_EQ(failureOf("click Command1(3)\nexpect-window frmRegistration\n"),
              "1: expected no message box, but there is \"Sure?\" (Yes, No, Cancel)");
    EXPECT_EQ(failureOf("answer \"Yes\" to \"Sure?\"\nclick Command1(3)\nexpect txtFirstName \"X\"\n"),
              "3: expected txtFirstName to read \"X\", but it reads \"\"");
    EXPECT_EQ(failureOf("screenshot none/such/none.png\n"), "1: the picture none/such/none.png cannot be written");
}

} // namespace
} // namespace opd::qt
