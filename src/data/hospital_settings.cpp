#include "data/hospital_settings.h"

#include "data/rows.h"

namespace opd::data {

namespace {

Statement settingsQuery() {
    return Statement(
        "Select top 1 isnull(ClientName,'') as ClientName, isnull(IsHMORate,0) isHMORate, isnull(IsOPDstatRate,0) "
        "IsOPDstatRate, "
        "isnull(IsAllowOPDShowLabSpecimen,0) IsAllowOPDShowLabSpecimen, isnull(IsAllowOPDChargeChangePrice,0) "
        "IsAllowOPDChargeChangePrice, "
        "isnull(isAllowOPDRegisterInpatient,0) isAllowOPDRegisterInpatient, isnull(IsAllowOPDCheckLabSection,0) "
        "IsAllowOPDCheckLabSection, "
        "isnull(IsAllowOPDAssessmentRateG,0) IsAllowOPDAssessmentRateG, isnull(isAllowCorvane,0) isAllowCorvane, "
        "isnull(isAllowOPDSearchBarangay,0) isAllowOPDSearchBarangay, Isnull(isAllowOPDSearchCardNumber,0) "
        "isAllowOPDSearchCardNumber, "
        "isnull(IsAllowOPDMABRate,0) IsAllowOPDMABRate, isnull(IsAllowOPDUpdateHMOLOA,0) IsAllowOPDUpdateHMOLOA, "
        "IsNull(IsAllowOPDExportReport,0) IsAllowOPDExportReport, IsNull(IsAllowOPDSearchDocBySched,0) "
        "IsAllowOPDSearchDocBySched, "
        "IsNull(IsAllowOPDPatientClass,0) IsAllowOPDPatientClass, IsNull(IsAllowOPDShowDiscount,0) "
        "IsAllowOPDShowDiscount, isnull(isAllowOPDPayCode,0) isAllowOPDPayCode, "
        "isnull(isAllowMultipleRequest,0) isAllowMultipleRequest, isnull(allowEndConsultation,0) "
        "allowEndConsultation, "
        "isnull(isAllowOPFileNumbering,0) isAllowOPFileNumbering, isnull(isAllowCreateNewIDnum,0)"
        "isAllowCreateNewIDnum, isnull(isAllowSpecializedCompanyRate,0)isAllowSpecializedCompanyRate from "
        "Patient_Data..tbHospitalInfo");
}

} // namespace

void loadFeatureFlags(Session& session) {
    const ado::Recordset row = openClient(session, settingsQuery());
    if (row.RecordCount() <= 0)
        return;
    for (const auto& [column, flag] : featureFlags)
        session.globals.*flag = row.Fields(column).asFlag();
}

void LoadHospitalInfo(Session& session) {
    const ado::Recordset row = openPlain(session, Statement("select * from Patient_Data..tbHospitalInfo"));
    if (row.EndOfFile())
        return;
    session.globals.gClientName = textOf(row, "clientname");
    session.globals.gCompanyName = textOf(row, "Company");
    session.globals.gCompanyAddress = textOf(row, "Address1");
}

} // namespace opd::data
