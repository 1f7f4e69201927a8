#include "reports/data_sheet.h"

#include "reports/prepare_report.h"

namespace opd::reports {

std::unique_ptr<report::Report> prepareDataSheet(const Session& session, const std::string& opdNumber) {
    const Globals& globals = session.globals;
    return PrepareReport(session, session.devices.moduleFolder / "Reports" / "DataSheet.rpt",
                         {opdNumber, globals.gCompanyName, globals.gCompanyAddress});
}

void showDataSheet(Session& session, const report::Report& dataSheet) {
    ShowReport(session, dataSheet, false, "Out-Patient & Emergency Room Record", false);
}

} // namespace opd::reports
