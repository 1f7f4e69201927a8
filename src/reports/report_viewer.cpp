#include "reports/report_viewer.h"

#include "data/rows.h"

namespace opd::reports {

frmReportViewer::frmReportViewer(Session& session, const report::Report& report)
    : m_session(session), m_report(report) {
    m_window.onLoad = [this] { load(); };
    m_window.onFailure = [this](const std::exception& failure) { data::reportFailure(m_session, failure); };
    m_window.onKeyPress = [this](ui::KeyPress& press) { keyPressed(press); };
    m_window.cancelButton = &m_fields.cmdClose;
    m_window.defaultButton = &m_fields.cmdPrint;
    m_fields.CRViewer1.onPage = [this] { showPage(); };
    m_window.hint =
        "Enter prints, Page Up and Page Down turn the pages, + and - enlarge, Esc closes, F1 lists the keys.";
    m_window.ownKeys = {{"Enter", "print"},
                        {"Page Up, Page Down", "previous page, next page"},
                        {"Home, End", "first page, last page"},
                        {"+, -", "larger, smaller"}};
    bindButtons();
}

frmReportViewer::~frmReportViewer() {
    m_window.unload();
}

void frmReportViewer::bindButtons() {
    ui::ReportPane& pane = m_fields.CRViewer1;
    m_fields.cmdPrint.onClick = [this] {
        if (print(false))
            m_window.unload();
    };
    m_fields.cmdSavePdf.onClick = [this] { savePdf(); };
    m_fields.cmdFirstPage.onClick = [&pane] { pane.turnTo(1); };
    m_fields.cmdPreviousPage.onClick = [&pane] { pane.turnTo(pane.page() - 1); };
    m_fields.cmdNextPage.onClick = [&pane] { pane.turnTo(pane.page() + 1); };
    m_fields.cmdLastPage.onClick = [&pane] { pane.turnTo(pane.pageCount()); };
    m_fields.cmdZoomOut.onClick = [&pane] { pane.zoom(-1); };
    m_fields.cmdZoomIn.onClick = [&pane] { pane.zoom(1); };
    m_fields.cmdPageWidth.onClick = [&pane] { pane.setFit(ui::ReportPane::Fit::PageWidth); };
    m_fields.cmdWholePage.onClick = [&pane] { pane.setFit(ui::ReportPane::Fit::WholePage); };
    m_fields.cmdClose.onClick = [this] { m_window.unload(); };
    m_fields.cmdShow.onClick = [this] { toggleToolbar(); };
}

void frmReportViewer::load() {
    ui::ReportPane& pane = m_fields.CRViewer1;
    pane.showsGroupTree = ShowGroupTree;
    pane.show(m_report.document());
    pane.setFit(ui::ReportPane::Fit::PageWidth);
    showPage();
}

void frmReportViewer::showModal() {
    {
        const ui::BusyPointer busy(m_session.desktop);
        m_window.load();
    }
    if (!DirectPrint || !print(true))
        m_session.desktop.showModal(m_window);
}

/// True when the report went to a printer.
bool frmReportViewer::print(bool atOnce) {
    report::PrintChoice choice = Kind.empty() ? report::PrintChoice{} : m_session.devices.prints.choiceFor(Kind);
    if (atOnce && !Kind.empty() && choice.printer.empty()) {
        // Nobody has said yet where such paper lies; on the standard printer's it would be spoilt.
        m_window.hint = "Print it here once: the printer and the copies are remembered for printing at once.";
        return false;
    }
    const report::Printed outcome = m_session.desktop.output().print(*m_fields.CRViewer1.document(), atOnce, choice);
    if (outcome == report::Printed::NoPrinter)
        tellNoPrinter(atOnce ? choice.printer : std::string{});
    if (outcome == report::Printed::Done && !Kind.empty())
        m_session.devices.prints.keep(Kind, choice);
    return outcome == report::Printed::Done;
}

void frmReportViewer::tellNoPrinter(const std::string& name) {
    const std::string fact = name.empty() ? "There is no printer on this workstation."
                                          : "The printer \"" + name + "\" is not there any more.";
    m_session.desktop.ask({.text = fact + " The report can still be read here and saved as a PDF file.",
                           .caption = std::string{m_window.caption()},
                           .icon = ui::Icon::Exclamation});
}

void frmReportViewer::savePdf() {
    const std::optional<std::filesystem::path> file = m_session.desktop.askFile(
        {.caption = "Save as PDF", .suggestedName = suggestedFileName(), .kind = "PDF files (*.pdf)"});
    if (!file)
        return;
    const ui::BusyPointer busy(m_session.desktop);
    m_window.setStatus({});
    m_session.desktop.output().writePdf(*m_fields.CRViewer1.document(), *file);
    m_window.setStatus("Saved as " + file->string() + ", readable for you alone.");
}

std::string frmReportViewer::suggestedFileName() const {
    const std::vector<report::ParameterField>& parameters = m_report.parameterFields;
    return (Kind.empty() ? "" : Kind + "-") + (parameters.empty() ? "Report" : parameters.front().value) + ".pdf";
}

void frmReportViewer::toggleToolbar() {
    const bool shown = m_fields.cmdShow.caption() != "<<";
    m_fields.cmdShow.setCaption(shown ? "<<" : ">>");
    m_fields.Toolbar1.setVisible(shown);
}

void frmReportViewer::showPage() {
    m_window.setStatus({});
    const int page = m_fields.CRViewer1.page();
    const int count = m_fields.CRViewer1.pageCount();
    m_fields.lblPage.setCaption("Page " + std::to_string(page) + " of " + std::to_string(count));
    for (ui::Button* back : {&m_fields.cmdFirstPage, &m_fields.cmdPreviousPage})
        back->setEnabled(page > 1);
    for (ui::Button* forward : {&m_fields.cmdNextPage, &m_fields.cmdLastPage})
        forward->setEnabled(page < count);
}

void frmReportViewer::keyPressed(ui::KeyPress& press) {
    if (press.code == U'+' || press.code == U'-')
        m_fields.CRViewer1.zoom(press.code == U'+' ? 1 : -1);
    else if (press.code == ui::key::escape) // the button for it is hidden with the toolbar
        m_window.unload();
}

} // namespace opd::reports
