#include "adapters/sqlite/hospital.h"

#include "adapters/report/engine.h"

#include <gtest/gtest.h>

namespace opd::tests {
namespace {

/// A hospital, an engine that stands beside it, and reports that are logged on to it.
class Reports : public testing::Test {
  protected:
    Reports() { ado::Providers::ofProcess().add("sqlite", adapters::sqlite::makeSqliteProvider(m_hospital.clock())); }

    std::unique_ptr<report::Report> open(const std::filesystem::path& file, const std::string& parameter) {
        std::unique_ptr<report::Report> report = m_engine.open(file);
        report->heading = "SAN ROQUE GENERAL HOSPITAL";
        report->subheading = "128 MABINI STREET, MANILA";
        report->printedBy = "CLERK";
        for (report::Table& table : report->tables)
            table.logOn = {m_hospital.folder().string(), "Patient_Data", "sa", "secret"};
        report->parameterFields.at(0).value = parameter;
        return report;
    }

    report::Document dataSheet(const std::string& visit) { return open(DATA_SHEET, visit)->document(); }

    std::filesystem::path written(const std::string& content) {
        std::filesystem::path file = m_files.path() / "report.rpt";
        writeFile(file, content);
        return file;
    }

    /// Opening the report or making its document fails, and says so.
    void expectFailure(const std::string& content, const std::string& message,
                       const std::string& parameter = "2600000001B") {
        try {
            open(written(content), parameter)->document();
            ADD_FAILURE() << "nothing failed: " << message;
        } catch (const std::exception& failure) {
            EXPECT_NE(std::string{failure.what()}.find(message), std::string::npos) << failure.what();
        }
    }

    EmbeddedHospital m_hospital;
    TemporaryFolder m_files;
    SharedImage m_photograph;
    adapters::ReportEngine m_engine{
        {.clock = m_hospital.clock(), .photograph = [this](const std::string&) { return m_photograph; }}};
};

const std::string oneQuery = "[parameters]\nVisit\n[row visit]\nPatient_Data..sp_aopd_LoadOutPatient '{Visit}'\n";

TEST_F(Reports, TheDataSheetOfAKnownVisitReadsAsApproved) {
    const std::unique_ptr<ado::Connection> connection = m_hospital.connect();
    connection->Execute("update Patient_Data..tbOutPatient set ServiceID2 = '2', DoctorID2 = 'D002', ServiceID3 = '', "
                        "ChiefComplaints = 'COUGH & \"FEVER\" <3 DAYS>' where IDNum = '2600000001B'");
    connection->Execute("Patient_Data..proc_Adm_Update_tbMasterMedicalHistory '00000002', 1, 0, 0, 0, 1, 0, 0, 0, "
                        "'APPENDECTOMY 2010'");
    connection->Execute("Patient_Data..sp_AOPD_Save_TbMasterAllergies '00000002', 'A01', '', 'A03', '', ''");
    const report::Document sheet = dataSheet("2600000001B");
    EXPECT_EQ(sheet.text, contentOf(std::filesystem::path{APPROVED} / "data_sheet.txt"));
    EXPECT_EQ(sheet.groups.front(), "Persons to Notify");
    EXPECT_NE(sheet.foot.find("Printed by CLERK on 07/01/2026 10:30 AM"), std::string::npos);
    EXPECT_NE(sheet.foot.find("Page {page} of {pages}"), std::string::npos);
    EXPECT_TRUE(sheet.images.contains("code128:00000002"));
}

TEST_F(Reports, AVisitSaysThatItIsRevokedAndShowsThePhotographThatIsOnFile) {
    EXPECT_EQ(dataSheet("2600000001B").text.find("REVOKED"), std::string::npos);
    EXPECT_EQ(dataSheet("2600000001B").images.size(), 1U); // the bar code alone
    m_photograph = std::make_shared<const Image>(Image{1, 1, {1, 2, 3}});
    const report::Document sheet = dataSheet("2600000003B");
    EXPECT_NE(sheet.text.find("\nREVOKED\n"), std::string::npos);
    EXPECT_EQ(sheet.images.at("photograph:00000006"), m_photograph);
}

TEST_F(Reports, AReportSaysOnWhichPaperItStandsAndWhetherItShrinks) {
    const report::Document label = open(LABEL, "2600000001B")->document();
    EXPECT_EQ(label.paper.width, 70);
    EXPECT_EQ(label.paper.height, 37);
    EXPECT_TRUE(label.shrinksToFit);
    EXPECT_TRUE(label.images.contains("code128:00000002"));
    EXPECT_NE(label.text.find("SANTOS, MARIA REYES"), std::string::npos) << label.text;
    const report::Document sheet = dataSheet("2600000001B");
    EXPECT_EQ(sheet.paper.height, 297);
    EXPECT_FALSE(sheet.shrinksToFit);
    expectFailure("[report]\npaper = 70\n", "report.rpt:2: expected \"paper = width height\"");
    expectFailure("[report]\npaper = 70 4000\n", "report.rpt:2: a paper is between");
    expectFailure("[report]\npaper = 70 37\nmargins = 40 0 40 0\n" + oneQuery + "[body]\nx\n",
                  "the margins leave nothing of the paper");
}

TEST_F(Reports, AReportThatCannotBeMadeSaysWhy) {
    expectFailure("nonsense", "report.rpt:1: expected a section");
    expectFailure("# remark\n[repot]\n", "report.rpt:2: there is no section [repot]");
    expectFailure(oneQuery, "at least one query and a body");
    expectFailure(oneQuery + "[body]\n<p>not closed\n", "layout of the report is broken");
    expectFailure(oneQuery + "[body]\n<p>{{#visit}}</p>\n", "layout of the report is broken");
    expectFailure(oneQuery + "[row b]\nsp_x '{c.d}'\n[body]\n<p/>\n", "no query c");
    expectFailure(oneQuery + "[row b]\nPatient_Data..sp_x '1'\n[body]\n<p/>\n", "sp_x");
    expectFailure(oneQuery + "[body]\n<p/>\n", "nothing on file", "9999B");
    expectFailure(oneQuery + "[body]\n<p/>\n", "apostrophe", "1' or '1'='1");
    expectFailure(oneQuery + "[body]\n" + std::string(2'000'000, 'x'), "larger than any");
    for (const char* margins : {"1e9 0 0 0", "-1 0 0 0", "nan 1 1 1", "91 1 1 1"})
        expectFailure(std::string{"[report]\nmargins = "} + margins + "\n", "margin");
    EXPECT_THROW(m_engine.open(m_files.path() / "missing.rpt"), std::runtime_error);
}

TEST_F(Reports, NoReportFileAndNoStoredTextTakesTheDeskAlong) {
    m_hospital.runAsAdministrator(
        "update Patient_Data_tbOutPatient set ChiefComplaints = cast(x'41001B5B306D0142' as text)");
    const std::string sheet = dataSheet("2600000001B").text;
    EXPECT_NE(sheet.find("A [0m B"), std::string::npos) << sheet;
    EXPECT_NE(sheet.find("Medications and Orders"), std::string::npos) << sheet;

    const report::Document blank = open(written(oneQuery +
                                                "[body]\n<h4></h4><h4> {{none}} </h4><h4>A<br/>B</h4>"
                                                "<p><img src=\"code128:" +
                                                std::string(300, '9') + "\" alt=\"no bars\"/></p>\n"),
                                        "2600000001B")
                                       ->document();
    EXPECT_EQ(blank.groups, (std::vector<std::string>{"", "", "A"}));
    EXPECT_EQ(blank.text, "A\nB\nno bars\n");

    std::string deep;
    for (int i = 0; i < 60000; ++i)
        deep += "<b>";
    for (int i = 0; i < 60000; ++i)
        deep += "</b>";
    expectFailure(oneQuery + "[body]\n" + deep, "too deep");
    for (const char* body :
         {"{{#a}}{{/b}}", "{{", "{{=x", "{{>self}}<p>&#0;x</p>", "<p/>{{{", "<!-- -", "<p>\xFF\xFE</p>"})
        try { // whatever it says, it comes back
            open(written(oneQuery + "[body]\n" + body + "\n"), "2600000001B")->document();
        } catch (const std::exception&) {
        }
}

TEST_F(Reports, NamesAreFoundInAnyLetterCaseAndWhatIsEmptyHidesItsPart) {
    const report::Document made =
        open(written(oneQuery +
                     "[rows none]\nfor each visit.PayCode\nPatient_Data..sp_Adm_LoadService '{each}'\n"
                     "[values visit.VisitKind]\nO = on file\n"
                     "[body]\n<p>{{VISIT.hospnum}}, {{visit.AdmDate_date}} at {{visit.admdate_TIME}}</p>"
                     "{{#visit.isChemo}}<p>chemotherapy</p>{{/visit.isChemo}}"
                     "{{^none}}<p>{{visit.Visitkind}}<img src=\"code128:\" alt=\" no code\"/></p>{{/none}}\n"),
             "2600000001B")
            ->document();
    EXPECT_EQ(made.text, "00000002, 06/29/2026 at 09:15 AM\non file no code\n");
}

} // namespace
} // namespace opd::tests
