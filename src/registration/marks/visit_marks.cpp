#include "registration/marks/visit_marks.h"

#include "base/text/text.h"
#include "registration/accounts/account_records.h"
#include "registration/record/codes.h"

namespace opd::registration {

namespace {

void showPatientClass(const Session& session, Fields& fields, const ado::Value& stored) {
    const std::string patientClass = stored.asText();
    if (patientClass.empty())
        return;
    fields.additional.txtPatientClassID.setText(patientClass);
    fields.additional.txtPatientClass.setText(GetAdmissionType(session, text::trimmed(patientClass)));
}

const VisitMark beforeAuthorization[] = {
    {"Corvane mark", &FeatureFlags::isAllowCorvane, "Corvane",
     [](const Fields& fields) { return std::string{bit(fields.additional.corvanePatient.selected())}; },
     [](const Session&, Fields& fields, const ado::Value& stored) {
         fields.additional.corvanePatient.setSelected(stored.asFlag());
     }},
    {"MAB mark", &FeatureFlags::IsAllowOPDMABRate, "isMABRate",
     [](const Fields& fields) { return std::string{bit(fields.additional.chkMAB.checked())}; },
     [](const Session&, Fields& fields, const ado::Value& stored) {
         fields.additional.chkMAB.setChecked(stored.asFlag());
     }}};

const VisitMark behindAuthorization[] = {
    {"patient class", &FeatureFlags::IsAllowOPDPatientClass, "PatientClass",
     [](const Fields& fields) { return text::trimmed(fields.additional.txtPatientClassID.text()); },
     &showPatientClass}};

} // namespace

std::span<const VisitMark> marksBeforeAuthorization() {
    return beforeAuthorization;
}

std::span<const VisitMark> marksBehindAuthorization() {
    return behindAuthorization;
}

void showMarks(const Session& session, Fields& fields, const ado::Recordset& visit) {
    for (const std::span<const VisitMark> marks : {marksBeforeAuthorization(), marksBehindAuthorization()})
        for (const VisitMark& mark : marks)
            if (mark.isKept(session.globals))
                mark.show(session, fields, visit.Fields(std::string{mark.column}));
}

} // namespace opd::registration
