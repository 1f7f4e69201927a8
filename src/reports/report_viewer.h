#pragma once

#include "ports/report/engine.h"
#include "reports/report_viewer_fields.h"
#include "session/session.h"
#include "ui/window.h"

namespace opd::reports {

/// The window that shows a report for reading, printing and saving.
class frmReportViewer {
  public:
    frmReportViewer(Session& session, const report::Report& report);
    ~frmReportViewer();

    bool ShowGroupTree = false; ///< lists the report's groups beside it
    std::string Kind;           ///< of paper: its printer and copies are remembered; empty: of none
    bool DirectPrint = false;   ///< prints at once instead of showing; shows all the same when nothing could be printed

    ui::Window& window() { return m_window; }
    ReportViewerFields& fields() { return m_fields; }

    /// Loads the window and shows it until it is closed. Throws what reading the report's data throws.
    void showModal();

  private:
    void bindButtons();
    void load();
    bool print(bool atOnce);
    void tellNoPrinter(const std::string& name);
    void savePdf();
    void toggleToolbar();
    void showPage();
    void keyPressed(ui::KeyPress& press);
    std::string suggestedFileName() const;

    Session& m_session;
    const report::Report& m_report;
    ui::Window m_window{"frmReportViewer", ""};
    ReportViewerFields m_fields{m_window};
};

} // namespace opd::reports
