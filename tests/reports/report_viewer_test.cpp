#include "support/test_session.h"

#include "reports/papers.h"
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

TEST_F(Viewer, TurnsPagesEnlargesSavesAndIsGoneWhenItIsPrinted) {
    desktop.work([&](ui::Window& window) {
        auto& pane = static_cast<ui::ReportPane&>(*window.find("CRViewer1"));
        EXPECT_EQ(std::string{window.caption()} + "|" + shown(window, "CRViewer1"), "Record|123456B");
        pane.laidOut(3);
        click(window, "cmdLastPage");
        click(window, "cmdPreviousPage");
        EXPECT_EQ(shown(window, "lblPage"), "Page 2 of 3");
        window.pressKey(U'+');
        EXPECT_EQ(pane.zoomSteps(), 1);
        desktop.file = "sheet.pdf";
        click(window, "cmdSavePdf");
        EXPECT_NE(window.statusLine().find("sheet.pdf"), std::string::npos);
        click(window, "cmdNextPage");
        EXPECT_EQ(window.statusLine().find("sheet.pdf"), std::string::npos) << "the page is another one by now";
        desktop.press.outcome = report::Printed::Cancelled;
        click(window, "cmdPrint");
        EXPECT_TRUE(window.isOpen());
        desktop.press.outcome = report::Printed::Done;
        window.pressKey(ui::key::enter);
        EXPECT_FALSE(window.isOpen());
    });
    show();
    EXPECT_EQ(desktop.press.printed.back(), "123456B");
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

TEST_F(Viewer, ALabelIsPrintedAtOnceWhereTheLastOneWasAndAsOften) {
    const auto showLabel = [&](bool atOnce) {
        reports::showPaper(session, reports::patientLabel, "7B", "00000007", atOnce);
    };
    showLabel(true); // nobody has said where labels lie
    EXPECT_EQ(desktop.shown, std::vector<std::string>{"frmReportViewer"});
    EXPECT_TRUE(desktop.press.printed.empty());
    EXPECT_EQ(this->reports.opened, "module/Reports/Label.rpt");

    desktop.press.chosen = {"Labels", 3};
    desktop.work([&](ui::Window& window) { click(window, "cmdPrint"); });
    showLabel(false);
    showLabel(true);
    EXPECT_EQ(desktop.press.printed, (std::vector<std::string>{"7B", "!7B"}));
    EXPECT_EQ(desktop.press.offered.printer + " " + std::to_string(desktop.press.offered.copies), "Labels 3");
    EXPECT_TRUE(prints.choiceFor("Card").printer.empty());

    desktop.press.outcome = report::Printed::NoPrinter;
    desktop.answer(ui::Answer::Ok);
    showLabel(true);
    EXPECT_NE(desktop.messages.back().text.find("\"Labels\" is not there any more"), std::string::npos);
    EXPECT_EQ(desktop.shown.size(), 3U);
}

} // namespace
} // namespace opd::tests
