#include "registration/form_fixture.h"

#include "ui/report_pane.h"

namespace opd::tests {
namespace {

/// A form that may be saved, and a clerk who presses "Save/Print".
struct PrintDesk : FormFixture, testing::Test {
    PrintDesk() {
        globals.gCompanyName = "SAN ROQUE";
        globals.gCompanyAddress = "MANILA";
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

TEST_F(PrintDesk, SavesTheVisitClosesTheFormAndShowsTheDataSheetOfTheVisit) {
    desktop.answer(ui::Answer::Ok);
    desktop.work([&](ui::Window& window) {
        desktop.work([&](ui::Window& viewer) {
            EXPECT_EQ(viewer.caption(), "Out-Patient & Emergency Room Record");
            EXPECT_EQ(viewer.find("CRViewer1")->shownText(), "26A0000007B");
            EXPECT_EQ(static_cast<ui::ReportPane&>(*viewer.find("CRViewer1")).document()->groups,
                      (std::vector<std::string>{"SAN ROQUE", "MANILA"}));
            EXPECT_FALSE(form->window().isOpen());
        });
        window.click(form->fields().buttons.cmdPrint);
    });
    desktop.showModal(form->window());
    EXPECT_EQ(desktop.shown, (std::vector<std::string>{"frmRegistration", "frmReportViewer"}));
    EXPECT_EQ(reports.opened, std::filesystem::path{"module"} / "Reports" / "DataSheet.rpt");
    EXPECT_NE(provider->log.find("sp_aopd_Update_tbOutpatient"), std::string::npos);
}

TEST_F(PrintDesk, AnInvalidFormIsNeitherSavedNorPrinted) {
    form->fields().header.txtLastName.setText("");
    desktop.answer(ui::Answer::Ok);
    press();
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(desktop.shown, std::vector<std::string>{"frmRegistration"});
    EXPECT_EQ(provider->log.find("begin"), std::string::npos);
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
