#include "support/test_session.h"

#include "reports/prepare_report.h"
#include "reports/report_viewer.h"

namespace opd::tests {
namespace {

struct Viewer : TestSession, testing::Test {
    Viewer() {
        globals.gCompanyName = "SAN ROQUE";
        globals.gCompanyAddress = "MANILA";
        globals.gDBServer = "SRV";
        globals.gDBUser = "opd";
        globals.gDBPassword = "secret";
        report =
            reports::PrepareReport(session, "Reports/DataSheet.rpt", {"123456B", "SAN ROQUE", "MANILA", "too many"});
    }

    static void click(ui::Window& window, const char* name) { window.click(*window.find(name)); }
    static std::string shown(ui::Window& window, const char* name) { return window.find(name)->shownText(); }

    void show(bool direct = false) { reports::ShowReport(session, *report, false, "Record", direct); }

    std::unique_ptr<report::Report> report;
};

TEST_F(Viewer, PreparingGivesTheReportHeaderLogOnAndParametersByPosition) {
    EXPECT_EQ(this->reports.opened, "Reports/DataSheet.rpt");
    EXPECT_EQ(report->heading + "|" + report->subheading + "|" + report->printedBy, "SAN ROQUE|MANILA|CLERK");
    for (const report::Table& table : report->tables)
        EXPECT_EQ(table.logOn.server + "|" + table.logOn.database + "|" + table.logOn.user + "|" + table.logOn.password,
                  "SRV|Patient_Data|opd|secret");
    EXPECT_EQ(report->parameterFields[0].value + "|" + report->parameterFields[2].value, "123456B|MANILA");
}

TEST_F(Viewer, ShowsTheReportPrintsItAndIsGone) {
    desktop.work([&](ui::Window& window) {
        EXPECT_EQ(window.caption(), "Record");
        EXPECT_EQ(shown(window, "CRViewer1"), "123456B");
        window.pressKey(ui::key::enter);
        EXPECT_FALSE(window.isOpen());
    });
    show();
    EXPECT_EQ(desktop.press.printed, std::vector<std::string>{"123456B"});
}

TEST_F(Viewer, KeepsThePreviewWhenNothingWasPrinted) {
    desktop.press.outcome = report::Printed::Cancelled;
    desktop.work([&](ui::Window& window) {
        click(window, "cmdPrint");
        EXPECT_TRUE(window.isOpen());
        desktop.press.outcome = report::Printed::NoPrinter;
        desktop.answer(ui::Answer::Ok);
        click(window, "cmdPrint");
        EXPECT_TRUE(window.isOpen());
        desktop.file = "sheet.pdf";
        click(window, "cmdSavePdf");
        EXPECT_TRUE(window.isOpen());
        EXPECT_NE(window.statusLine().find("sheet.pdf"), std::string::npos);
    });
    show();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_NE(desktop.messages[0].text.find("no printer"), std::string::npos);
    EXPECT_EQ(desktop.fileQuestions.at(0).suggestedName, "123456B.pdf");
    EXPECT_EQ(desktop.press.files, std::vector<std::filesystem::path>{"sheet.pdf"});
}

TEST_F(Viewer, DirectPrintShowsAWindowOnlyWhenNothingCouldBePrinted) {
    show(true);
    EXPECT_EQ(desktop.press.printed, std::vector<std::string>{"!123456B"});
    EXPECT_TRUE(desktop.shown.empty());

    report = reports::PrepareReport(session, "r", {"7B"});
    desktop.press.outcome = report::Printed::NoPrinter;
    desktop.answer(ui::Answer::Ok);
    show(true);
    EXPECT_EQ(desktop.shown, std::vector<std::string>{"frmReportViewer"});
}

TEST_F(Viewer, TogglesItsToolbarAndTurnsPages) {
    desktop.work([&](ui::Window& window) {
        auto& pane = static_cast<ui::ReportPane&>(*window.find("CRViewer1"));
        EXPECT_FALSE(window.find("cmdNextPage")->enabled());
        pane.laidOut(3);
        EXPECT_EQ(shown(window, "lblPage"), "Page 1 of 3");
        click(window, "cmdLastPage");
        click(window, "cmdPreviousPage");
        EXPECT_EQ(shown(window, "lblPage"), "Page 2 of 3");
        window.pressKey(U'+');
        EXPECT_EQ(pane.zoomSteps(), 1);
        for (const bool visible : {false, true}) {
            click(window, "cmdShow");
            EXPECT_EQ(shown(window, "cmdShow"), visible ? "<<" : ">>");
            EXPECT_EQ(window.find("Toolbar1")->visible(), visible);
        }
        click(window, "cmdShow");
        window.pressKey(ui::key::escape); // "Close" is hidden now
        EXPECT_FALSE(window.isOpen());
    });
    show();
}

} // namespace
} // namespace opd::tests
