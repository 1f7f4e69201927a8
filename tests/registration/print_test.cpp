#include "registration/form_fixture.h"

#include "ui/report_pane.h"

namespace opd::tests {
namespace {

/// A form that may be saved, and a clerk who presses "Save/Print".
struct PrintDesk : FormFixture, testing::Test {
    PrintDesk() {
        openNewPatient();
        fillRequired();
    }

    void press() {
        desktop.work([&](ui::Window& window) {
            window.click(form->fields().buttons.cmdPrint);
            stayedOpen = window.isOpen();
        });
        desktop.showModal(form->window());
    }

    bool stayedOpen = false;
};

TEST_F(PrintDesk, ClosesTheFormBeforeTheDataSheetIsShown) {
    desktop.answer(ui::Answer::Ok);
    desktop.work([&](ui::Window& window) {
        desktop.work([&](ui::Window& viewer) {
            EXPECT_EQ(viewer.caption(), "Out-Patient & Emergency Room Record");
            EXPECT_FALSE(form->window().isOpen());
        });
        window.click(form->fields().buttons.cmdPrint);
    });
    desktop.showModal(form->window());
    EXPECT_EQ(desktop.shown, (std::vector<std::string>{"frmRegistration", "frmReportViewer"}));
}

TEST_F(PrintDesk, AReportWhoseDataCannotBeReadIsToldAndTheVisitStands) {
    reports.failure = "The connection is lost.";
    desktop.answer(ui::Answer::Ok);
    desktop.answer(ui::Answer::Ok);
    press();
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(desktop.messages.back().text, "The connection is lost.");
    EXPECT_FALSE(desktop.isBusy());
    EXPECT_NE(provider->log.find("commit\n"), std::string::npos);
}

TEST_F(PrintDesk, WithoutANumberForTheVisitThereIsNothingToPrint) {
    provider->failOn("Patient_Data..sp_aopd_GetNewOPDID", "out of numbers");
    desktop.answer(ui::Answer::Ok);
    press();
    EXPECT_FALSE(stayedOpen);
    EXPECT_TRUE(desktop.messages.back().text.starts_with("Unable to assign a new OPD Number\r\n\r\n"));
    EXPECT_EQ(desktop.shown, std::vector<std::string>{"frmRegistration"});
}

} // namespace
} // namespace opd::tests
