#include "data/hospital_settings.h"

#include "data/rows.h"
#include "data/statements.h"

namespace opd::data {

void loadFeatureFlags(Session& session) {
    const ado::Recordset row = openClient(session, statements::featureFlags());
    if (row.RecordCount() <= 0)
        return;
    for (const auto& [column, flag] : featureFlags)
        session.globals.*flag = row.Fields(column).asFlag();
}

void LoadHospitalInfo(Session& session) {
    const ado::Recordset row = openPlain(session, statements::hospitalInfo());
    if (row.EndOfFile())
        return;
    session.globals.setClient(textOf(row, "clientname"));
    session.globals.gCompanyName = textOf(row, "Company");
    session.globals.gCompanyAddress = textOf(row, "Address1");
}

} // namespace opd::data
