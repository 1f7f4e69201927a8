#pragma once

#include "reports/report_viewer_fields.h"
#include "session/session.h"
#include "ui/window.h"

namespace opd::reports {

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
