#include "registration/load/visit_fields.h"

#include "base/text/leading_number.h"
#include "base/text/text.h"
#include "registration/accounts/account_records.h"
#include "registration/load/columns.h"
#include "registration/marks/visit_marks.h"
#include "registration/record/codes.h"

#include <algorithm>

namespace opd::registration {

namespace {

using data::textOf;

void showTexts(Fields& fields, const ado::Recordset& visit) {
    HeaderFields& header = fields.header;
    ConsultationTab& consultation = fields.consultation;
    fill(visit, {
                    {"CardNumber", fields.personal.txtCardNum},
                    {"Company", fields.personal.company.name},
                    {"HospNum", header.txtHospNum},
                    {"AccountNum", fields.personal.company.code},
                    {"Remarks", fields.personal.txtRemarks},
                    {"IdNum", header.txtOPDNum},
                    {"LastName", header.txtLastName},
                    {"MiddleName", header.txtMiddleName},
                    {"FirstName", header.txtFirstName},
                    {"CauseofConsultationid1", consultation.txtCauseofConsultationID1},
                    {"CauseofConsultationid2", consultation.txtCauseofConsultationID2},
                    {"CauseofConsultationid3", consultation.txtCauseofConsultationID3},
                    {"CauseofConsultation1", consultation.txtCauseofConsultation1},
                    {"CauseofConsultation2", consultation.txtCauseofConsultation2},
                    {"CauseofConsultation3", consultation.txtCauseofConsultation3},
                    {"Height", consultation.txtHeight},
                    {"Weight", consultation.txtWeight},
                    {"Temperature", consultation.txtTemperature},
                    {"BloodType", consultation.txtBloodType},
                    {"InformantName", consultation.informantName},
                    {"InformantAddress", consultation.informantAddress},
                    {"InformantRelation", consultation.informantRelation},
                    {"InformantTelNum", consultation.informantTelephone},
                    {"GuarantorName", consultation.guarantorName},
                    {"GuarantorAddress", consultation.guarantorAddress},
                    {"GuarantorTelnum", consultation.guarantorTelephone},
                    {"GuarantorEmployer", consultation.guarantorEmployer},
                    {"GuarantorEmployerAddress", consultation.guarantorEmployerAddress},
                    {"SeniorCitizenID", fields.personal.txtSeniorID},
                    {"SeniorCitizenIDNo", fields.personal.txtSeniorCitizenID},
                    {"PulseRate", consultation.txtPR},
                });
    consultation.txtRespRate.setText(text::trimmed(textOf(visit, "RespiratoryRate")));
    fields.history.complaint.setText(text::trimmed(textOf(visit, "ChiefComplaints")));
}

void showAccount(Fields& fields, const ado::Recordset& visit) {
    PersonalTab& personal = fields.personal;
    fields.additional.txtApprovalNo.setText(textOf(visit, "HMOApprovalNum"));
    if (data::hasColumn(visit, "AccountRemarks"))
        personal.txtARemarks.setText(textOf(visit, "AccountRemarks"));
    if (personal.company.code.text() == fields.header.txtHospNum.text()) {
        personal.notInsured.setSelected(true);
        personal.company.code.setText("");
        personal.company.name.setText("PERSONAL");
        return;
    }
    fields.additional.letterOfAuthorization.setEnabled(true);
    personal.insured.setSelected(true);
}

/// The code of a slot's object, or the stored one when the reference file does not know it (any more): what is stored
/// stays on the screen, and so in the visit.
template <class Object> std::string shownCode(const CodedSlot<Object>& slot, const Object& object) {
    return object.Code().empty() && !text::isBlank(slot.id) ? slot.id : object.Code();
}

/// Looks the object of each slot up and shows its code and name: slot n in boxes 2n and 2n + 1.
template <class Object>
void showPairs(const Session& session, std::array<CodedSlot<Object>, 5>& slots, std::size_t firstSlot, int count,
               const ui::ControlArray<ui::TextBox>& boxes) {
    for (int n = 0; n < count; ++n) {
        CodedSlot<Object>& slot = slots.at(firstSlot + static_cast<std::size_t>(n));
        Object& object = slot.get(session);
        boxes(2 * n).setText(shownCode(slot, object));
        boxes(2 * n + 1).setText(object.Code().empty() ? std::string{} : object.name());
    }
}

void showServicesAndDoctors(const Session& session, ConsultationTab& consultation, Record& record,
                            const ado::Recordset& visit) {
    const char* const services[] = {"ServiceID1", "ServiceID2", "ServiceID3"};
    const char* const doctors[] = {"doctorid1", "DoctorID2", "doctorid3", "DoctorID4", "DoctorID5"};
    for (std::size_t n = 0; n < std::size(services); ++n)
        record.Service[n].id = textOf(visit, services[n]);
    for (std::size_t n = 0; n < std::size(doctors); ++n)
        record.AttendingDoctor[n].id = textOf(visit, doctors[n]);
    showPairs(session, record.Service, 0, 3, consultation.txtService);
    showPairs(session, record.AttendingDoctor, 0, 2, consultation.txtDoctor);
    showPairs(session, record.AttendingDoctor, 2, 3, consultation.txtAddDoctor);
}

/// "120/80" fills both boxes, "120" and "120/" the first one; a pressure that was never taken leaves both.
void showBloodPressure(ConsultationTab& consultation, const std::string& pressure) {
    if (text::isBlank(pressure))
        return;
    const std::size_t slash = pressure.find('/');
    consultation.systolic.setText(pressure.substr(0, slash));
    if (pressure == "0/" || pressure == "0" || pressure == "/")
        return;
    const std::string rest = slash == std::string::npos ? std::string{} : pressure.substr(slash + 1);
    consultation.diastolic.setText(rest.substr(0, rest.find('/')));
}

void showConsultationKind(Fields& fields, const ado::Recordset& visit) {
    const std::string type = textOf(visit, "ConsultationType");
    selectOption(fields.consultation.optConsType, type == "W" ? 1 : 0);
    fields.personal.purposeRicu.setChecked(type == "R");
    fields.personal.purposeHema.setChecked(type == "H");
    const std::string unit = textOf(visit, "PerUnit");
    const auto& units = fields.consultation.units;
    for (std::size_t n = 0; n < units.size(); ++n)
        units[n]->setSelected(unit == std::to_string(n + 1));
}

void showAdmissionTime(HeaderFields& header, const DateTime& serverDate, const ado::Recordset& visit) {
    const DateTime admitted = visit.Fields("AdmDate").asDate();
    const DateTime shown = admitted.isSet() ? admitted : serverDate;
    header.dtpAdmDate.setValue(shown);
    header.txtAdmTime.setValue(shown);
}

void showPayer(Fields& fields, const ado::Recordset& visit) {
    PersonalTab& personal = fields.personal;
    const std::string plan = textOf(visit, "HospPlan");
    selectOption(personal.optHospPlan, plan == "I" ? 2 : plan == "C" ? 1 : 0);
    const std::string senior = textOf(visit, "SeniorCitizenID");
    const bool isSenior = text::leadingNumber(senior) != 0 || text::upper(text::trimmed(senior)) == "TRUE";
    personal.chkSeniorCitizen.setChecked(isSenior);
    personal.fraSenior.setEnabled(isSenior);
    const std::string patientType = textOf(visit, "PatientType");
    if (patientType == "C" || patientType == "W")
        personal.chkPatientType.setChecked(patientType == "W");
    personal.chkWalkIn.setChecked(visit.Fields("isWalkin").asFlag());
}

/// A visit that was revoked says so, and can be restored on its own day; any other can be revoked.
void showStatus(Fields& fields, const DateTime& serverDate, const ado::Recordset& visit) {
    if (textOf(visit, "opdstatus") != "R") {
        fields.buttons.cmdRevoke.setVisible(true);
        return;
    }
    fields.header.lblAdmissionStatus.setVisible(true);
    if (visit.Fields("AdmDate").asDate().date() == serverDate.date())
        fields.buttons.cmdUnRevoke.setVisible(true);
}

/// Several codes may read alike, so the code decides which entry is shown and not its description.
void showPayCode(const Session& session, PersonalTab& personal, const std::string& payCode) {
    ui::ComboBox& codes = personal.cmbPaycodeID;
    ui::ComboBox& descriptions = personal.cmbPaycode;
    const std::string description = GetPayCode(session, text::trimmed(payCode));
    const auto entry = std::find_if(codes.items().begin(), codes.items().end(), [&](const std::string& code) {
        return text::trimmed(code) == text::trimmed(payCode);
    });
    if (entry != codes.items().end())
        descriptions.select(static_cast<int>(entry - codes.items().begin()));
    else
        descriptions.setText(description);
    codes.setText(payCode);
}

void showOptionalMarkers(const Session& session, Fields& fields, const ado::Recordset& visit) {
    if (session.globals.client().usesPayCodes) {
        const std::string payCode = textOf(visit, "PayCode");
        if (!payCode.empty())
            showPayCode(session, fields.personal, payCode);
    }
    showMarks(session, fields, visit);
}

void keepUnshown(Record& record, const ado::Recordset& visit) {
    record.CauseofConsultationID = text::trimmed(textOf(visit, "CauseofConsultationID"));
    record.Findings = textOf(visit, "Findings");
    record.Medications = textOf(visit, "Medications");
    record.DiagnosisID = {textOf(visit, "DiagnosisID1"), textOf(visit, "DiagnosisID2"), textOf(visit, "DiagnosisID3")};
}

} // namespace

void showVisit(const Session& session, Fields& fields, Record& record, const ado::Recordset& visit) {
    const DateTime& serverDate = session.globals.gServerDate;
    showTexts(fields, visit);
    showAccount(fields, visit);
    showServicesAndDoctors(session, fields.consultation, record, visit);
    showBloodPressure(fields.consultation, textOf(visit, "BloodPressure"));
    showConsultationKind(fields, visit);
    showAdmissionTime(fields.header, serverDate, visit);
    showPayer(fields, visit);
    showStatus(fields, serverDate, visit);
    keepUnshown(record, visit);
    showOptionalMarkers(session, fields, visit);
    keepCodes(fields, record, visit);
}

void showAllergies(const Session& session, HistoryTab& history, Record& record, const ado::Recordset& row) {
    const char* const columns[] = {"AllergyID1", "AllergyID2", "AllergyID3", "AllergyID4", "AllergyID5"};
    const int nameOffset = 5;
    for (int n = 0; n < nameOffset; ++n) {
        CodedSlot<search::clsAllergy>& slot = record.Allergy[static_cast<std::size_t>(n)];
        slot.id = textOf(row, columns[n]);
        const search::clsAllergy& allergy = slot.get(session);
        history.txtAllergy(n).setText(shownCode(slot, allergy));
        history.txtAllergy(n + nameOffset).setText(allergy.AllergyName());
    }
}

} // namespace opd::registration
