#pragma once

#include "platform/ui/report_pane.h"
#include "platform/ui/window.h"
#include "session/session.h"

namespace opd::reports {

/// The controls of the report viewer, in tab order.
struct ReportViewerFields {
    explicit ReportViewerFields(ui::Window& form) : window(form) {}

    ui::Window& window;
    ui::Frame Toolbar1{window, "Toolbar1", ""};
    ui::Button cmdPrint{Toolbar1, "cmdPrint", "PRINT"};
    ui::Button cmdSavePdf{Toolbar1, "cmdSavePdf", "&Save as PDF"};
    ui::Button cmdFirstPage{Toolbar1, "cmdFirstPage", "|<"};
    ui::Button cmdPreviousPage{Toolbar1, "cmdPreviousPage", "<"};
    ui::Label lblPage{Toolbar1, "lblPage", ""};
    ui::Button cmdNextPage{Toolbar1, "cmdNextPage", ">"};
    ui::Button cmdLastPage{Toolbar1, "cmdLastPage", ">|"};
    ui::Button cmdZoomOut{Toolbar1, "cmdZoomOut", "-"};
    ui::Button cmdZoomIn{Toolbar1, "cmdZoomIn", "+"};
    ui::Button cmdPageWidth{Toolbar1, "cmdPageWidth", "Page &Width"};
    ui::Button cmdWholePage{Toolbar1, "cmdWholePage", "W&hole Page"};
    ui::Button cmdClose{Toolbar1, "cmdClose", "&Close"};
    ui::Button cmdShow{window, "cmdShow", "<<"};
    ui::ReportPane CRViewer1{window, "CRViewer1"};
};

/// The window that shows the session's current report for reading, printing and saving. Closing it releases the report.
class frmReportViewer {
  public:
    explicit frmReportViewer(Session& session);
    ~frmReportViewer();

    bool ShowGroupTree = false; ///< lists the report's groups beside it
    bool DirectPrint = false;   ///< prints at once instead of showing; shows all the same when nothing could be printed

    ui::Window& window() { return m_window; }
    ReportViewerFields& fields() { return m_fields; }

    /// Loads the window and shows it until it is closed. Throws what reading the report's data throws.
    void showModal();

  private:
    void bindButtons();
    void load();
    bool print(bool atOnce);
    void savePdf();
    void toggleToolbar();
    void showPage();
    void keyPressed(ui::KeyPress& press);
    std::string suggestedFileName() const;

    Session& m_session;
    ui::Window m_window{"frmReportViewer", ""};
    ReportViewerFields m_fields{m_window};
};

} // namespace opd::reports
