#include "reports/prepare_report.h"

#include "reports/report_viewer.h"

#include <algorithm>

namespace opd::reports {

std::unique_ptr<report::Report> PrepareReport(const Session& session, const std::filesystem::path& file,
                                              const std::vector<std::string>& values) {
    const Globals& globals = session.globals;
    std::unique_ptr<report::Report> report = session.devices.reports.open(file);
    report->heading = globals.gCompanyName;
    report->subheading = globals.gCompanyAddress;
    report->printedBy = globals.gUserID;
    for (report::Table& table : report->tables)
        table.logOn = {globals.gDBServer, "Patient_Data", globals.gDBUser, globals.gDBPassword};
    const std::size_t count = std::min(values.size(), report->parameterFields.size());
    for (std::size_t i = 0; i < count; ++i)
        report->parameterFields[i].value = values[i];
    return report;
}

void ShowReport(Session& session, const report::Report& report, bool showGroupTree, const std::string& caption,
                bool directPrint) {
    frmReportViewer viewer{session, report};
    viewer.ShowGroupTree = showGroupTree;
    viewer.window().setCaption(caption);
    viewer.DirectPrint = directPrint;
    viewer.showModal();
}

} // namespace opd::reports
