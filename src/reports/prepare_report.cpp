#include "reports/prepare_report.h"

#include "reports/report_viewer.h"

#include <algorithm>
#include <cassert>

namespace opd::reports {

void PrepareReport(Session& session, const std::filesystem::path& file, const std::vector<std::string>& values) {
    Globals& globals = session.globals;
    globals.gReport = session.devices.reports.open(file);
    report::Report& report = *globals.gReport;
    report.heading = globals.gCompanyName;
    report.subheading = globals.gCompanyAddress;
    report.printedBy = globals.gUserID;
    for (report::Table& table : report.tables)
        table.logOn = {globals.gDBServer, "Patient_Data", globals.gDBUser, globals.gDBPassword};
    const std::size_t count = std::min(values.size(), report.parameterFields.size());
    for (std::size_t i = 0; i < count; ++i)
        report.parameterFields[i].value = values[i];
}

void ShowReport(Session& session, bool showGroupTree, const std::string& caption, bool directPrint) {
    assert(session.globals.gReport && "a report is prepared before it is shown");
    frmReportViewer viewer{session};
    viewer.ShowGroupTree = showGroupTree;
    viewer.window().setCaption(caption);
    viewer.DirectPrint = directPrint;
    viewer.showModal();
}

} // namespace opd::reports
