#include "adapters/qt/basics/qt_image.h"
#include "adapters/qt/report/paged_document.h"
#include "adapters/qt/report/qt_output.h"
#include "support/temporary_folder.h"
#include "tests/adapters/qt/desk.h"

#include <QGraphicsView>
#include <QLabel>
#include <QProcess>
#include <QScrollBar>

#include <filesystem>
#include <stdexcept>

namespace opd::qt {
namespace {

/// A report of as many numbered paragraphs; every hundredth begins a group.
report::Document documentOf(int paragraphs) {
    report::Document document;
    document.title = "Numbers";
    document.style = "p { font-size: 10pt; margin: 0; }";
    document.head = "<p>continued on {page}</p>";
    document.foot = "<p>Page {page} of {pages}</p>";
    for (int i = 0; i < paragraphs; ++i) {
        if (i % 100 == 0)
            document.body += "<h4>Group " + std::to_string(i / 100) + "</h4>";
        document.body += "<p>number " + std::to_string(i) + " PE\u00d1A</p>";
    }
    return document;
}

/// What a PDF reader reads on one page of a file.
std::string pageText(const QString& file, int page) {
    QProcess reader;
    const QString number = QString::number(page);
    reader.start("pdftotext", {"-layout", "-f", number, "-l", number, file, "-"});
    EXPECT_TRUE(reader.waitForFinished());
    return reader.readAllStandardOutput().toStdString();
}

int countOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(QtReport, ALongReportLosesNothingBetweenItsPagesAndNumbersThem) {
    const tests::TemporaryFolder folder;
    const QString file = toQt((folder / "numbers.pdf").string());
    const report::Document document = documentOf(250);
    QtOutput(true, {}).writePdf(document, fromQt(file));
    EXPECT_EQ(std::filesystem::status(fromQt(file)).permissions(), std::filesystem::perms{0600});
    const PagedDocument pages(document);
    ASSERT_GT(pages.pageCount(), 2);
    std::string whole;
    for (int page = 1; page <= pages.pageCount(); ++page) {
        const std::string text = pageText(file, page);
        const std::string number = std::to_string(page);
        EXPECT_EQ(countOf(text, "Page " + number + " of " + std::to_string(pages.pageCount())), 1) << text;
        EXPECT_EQ(countOf(text, "continued on " + number), page > 1 ? 1 : 0);
        whole += text;
    }
    for (int i = 0; i < 250; ++i)
        EXPECT_EQ(countOf(whole, "number " + std::to_string(i) + " PE\u00d1A\n"), 1) << i;
    EXPECT_EQ(pages.pageOfGroup(0), 1);
    EXPECT_GT(pages.pageOfGroup(2), pages.pageOfGroup(1));
}

TEST(QtReport, ALabelIsMadeSmallerUntilItFitsAndNothingOfItIsCut) {
    const tests::TemporaryFolder folder;
    const QString file = toQt((folder / "label.pdf").string());
    report::Document label;
    label.paper = {70, 37};
    label.margins = {2, 2, 2, 2};
    label.shrinksToFit = true;
    label.style = "p { font-size: 10pt; margin: 0; }";
    const std::string longWord(30, 'W');
    for (const std::string name : {"Ñ", "ÑOVAL", longWord.c_str()}) {
        label.body = "<p>" + name + ", MARIA DE LOS ANGELES " + name + "-" + longWord + " END</p><p>00000012</p>";
        const PagedDocument pages(label);
        EXPECT_EQ(pages.pageCount(), 1) << name;
        QtOutput(true, {}).writePdf(label, fromQt(file));
        std::string read = pageText(file, 1);
        std::erase_if(read, [](char c) { return c == ' ' || c == '\n' || c == '\f'; });
        EXPECT_EQ(read, name + ",MARIADELOSANGELES" + name + "-" + longWord + "END00000012");
    }
    for (int line = 0; line < 40; ++line)
        label.body += "<p>line " + std::to_string(line) + ".</p>";
    const PagedDocument pages(label);
    EXPECT_GT(pages.pageCount(), 1);
    QtOutput(true, {}).writePdf(label, fromQt(file));
    EXPECT_NE(pageText(file, pages.pageCount()).find("line 39."), std::string::npos);
}

TEST(QtReport, AFileThatCannotBeWrittenSaysWhy) {
    try {
        QtOutput(true, {}).writePdf(documentOf(1), "/no/such/folder/report.pdf");
        FAIL() << "it was written";
    } catch (const std::runtime_error& failure) {
        EXPECT_NE(std::string{failure.what()}.find("/no/such/folder/report.pdf"), std::string::npos);
    }
    report::PrintChoice choice;
    EXPECT_EQ(QtOutput(true, {}).print(documentOf(1), false, choice), report::Printed::NoPrinter);
}

TEST(QtReport, TheViewerShowsPagesAndTheKeysMoveInThem) {
    Desk<samples::ReportViewer> desk;
    ui::ReportPane& pane = desk.form.CRViewer1;
    pane.showsGroupTree = true;
    int turns = 0;
    pane.onPage = [&] { ++turns; };
    pane.show(documentOf(250));
    pane.setFit(ui::ReportPane::Fit::PageWidth);
    hands::settle();
    ASSERT_GT(pane.pageCount(), 2);
    auto* const view = desk.widget<QGraphicsView>("");
    const int top = view->verticalScrollBar()->value();
    desk.press("PageDown");
    EXPECT_GT(view->verticalScrollBar()->value(), top);
    for (int i = 0; i < 8 && pane.page() == 1; ++i)
        desk.press("PageDown");
    EXPECT_EQ(pane.page(), 2);
    desk.press("End");
    EXPECT_EQ(pane.page(), pane.pageCount());
    EXPECT_EQ(turns, 3);
    const qreal before = view->transform().m11();
    pane.zoom(1);
    EXPECT_GT(view->transform().m11(), before);
}

TEST(QtReport, APictureIsShownWholeAndUndistorted) {
    RegistrationDesk desk;
    desk.form.tabOPD.show(desk.form.additional.page.index());
    Image wide{400, 100, std::vector<std::uint8_t>(120000, 90)};
    wide.rgb[0] = 200;
    EXPECT_EQ(fromQt(toQt(wide)), wide);
    desk.form.additional.picPatient.setImage(std::make_shared<const Image>(wide));
    hands::settle();
    const auto* place = desk.widget<QLabel>("picPatient");
    const QSize shown = place->pixmap().size() / place->devicePixelRatioF();
    EXPECT_NEAR(shown.width(), shown.height() * 4, 4);
    EXPECT_LE(shown.width(), place->contentsRect().width());
}

} // namespace
} // namespace opd::qt
