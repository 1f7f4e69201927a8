#include "reports/papers.h"

#include "reports/prepare_report.h"
#include "reports/report_viewer.h"

namespace opd::reports {

void showPaper(Session& session, const Paper& paper, const std::string& opdNumber, const std::string& hospNum,
               bool directPrint) {
    const Globals& globals = session.globals;
    const auto report = PrepareReport(session, session.devices.moduleFolder / "Reports" / paper.file,
                                      {opdNumber, hospNum, globals.gCompanyName, globals.gCompanyAddress});
    frmReportViewer viewer{session, *report};
    viewer.Kind = paper.kind;
    viewer.DirectPrint = directPrint;
    viewer.window().setCaption(paper.caption);
    viewer.showModal();
}

void bindPrintKeys(ui::Window& window, const std::function<void(const Paper& paper)>& print) {
    const auto add = [&](const Paper& paper, const char* key, const char* deed) {
        window.ownKeys.push_back({key, deed, [print, &paper]() -> ui::Control* {
                                      print(paper);
                                      return nullptr;
                                  }});
    };
    add(patientLabel, "Shift+F7", "print the label at once");
    add(patientCard, "Shift+F8", "print the card at once");
}

} // namespace opd::reports
