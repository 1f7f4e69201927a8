#include "registration/save/visit_statements.h"

#include "ado/error.h"
#include "base/clock/date_text.h"
#include "base/text/text.h"
#include "registration/record/amount_text.h"
#include "registration/record/codes.h"

#include <algorithm>

namespace opd::registration {

using ado::Statement;
using Values = std::vector<std::string>;

namespace {

std::string trimmedText(const ui::TextBox& box) {
    return text::trimmed(box.text());
}

const char* oneIf(bool set) {
    return set ? "1" : "0";
}

/// The arguments that every client's list begins with.
Values commonVisit(const FormContext& form) {
    const PersonalTab& personal = form.fields.personal;
    const ConsultationTab& consultation = form.fields.consultation;
    return {form.record.SaveHospNum,
            savedVisit(form.record),
            personal.company.code.text(),
            text::upper(personal.txtRemarks.text()),
            consultation.service1.code.text(),
            consultation.service2.code.text(),
            consultation.service3.code.text(),
            "",
            "",
            consultation.doctor1.code.text(),
            consultation.doctor2.code.text() + " ", // the blank is as the hospitals know it
            form.session.globals.AccountTypeCode,
            form.record.ConsultationTypeCode,
            consultation.txtWeight.text(),
            consultation.txtTemperature.text(),
            form.record.BloodPressureKept.sent(pressureText(form.fields)),
            form.record.VisitKindCode,
            form.session.globals.gUserID,
            admDateTime(form.fields)};
}

/// A visit with bill has its type in a value of its own; any other type stands where the purpose does.
std::string purpose(const FormContext& form) {
    const std::string chosen = purposeCode(form.fields);
    return form.record.ConsultationTypeCode.empty() ? form.record.ConsultationTypeKept.sent(chosen) : chosen;
}

/// What the form does not show, as the database takes it.
std::string unshown(const std::string& stored) {
    return text::replaced(stored, "'", "`");
}

void append(Values& values, const Values& more) {
    values.insert(values.end(), more.begin(), more.end());
}

/// The run of arguments from the card number to the approval number that every client's list has somewhere.
Values cardToApproval(const FormContext& form) {
    const PersonalTab& personal = form.fields.personal;
    const ConsultationTab& consultation = form.fields.consultation;
    return {personal.txtCardNum.text(),
            form.record.PatientTypeCode,
            purpose(form),
            personal.txtARemarks.text(),
            trimmedText(consultation.txtHeight),
            form.record.PerUnitKept.sent(perUnitCode(form.fields)),
            "",
            form.record.SeniorKept.sent(seniorCode(form.fields)),
            consultation.txtRespRate.text(),
            form.fields.additional.txtApprovalNo.text()};
}

Values valuesOf(VisitArgument argument, const FormContext& form) {
    const ConsultationTab& consultation = form.fields.consultation;
    switch (argument) {
    case VisitArgument::ChiefComplaint:
        return {form.fields.history.complaint.text()};
    case VisitArgument::Cause1:
        return {consultation.txtCauseofConsultationID1.text()};
    case VisitArgument::Cause2:
        return {consultation.txtCauseofConsultationID2.text()};
    case VisitArgument::Cause3:
        return {consultation.txtCauseofConsultationID3.text()};
    case VisitArgument::PulseRate:
        return {consultation.txtPR.text()};
    case VisitArgument::PayCode:
        return {text::trimmed(form.fields.personal.cmbPaycodeID.text())};
    case VisitArgument::CardToApproval:
        return cardToApproval(form);
    case VisitArgument::Corvane:
        return {form.record.CorvanePatientCode};
    case VisitArgument::Hemodialysis:
        return {form.record.HemoCode};
    }
    return {};
}

/// A moment of the letter of authorization: its pickers show minutes, so it has no seconds.
std::string minuteText(const ui::DatePicker& date, const ui::DatePicker& time) {
    DateTime shown = time.value();
    shown.second = 0;
    return dateText(date.value()) + " " + clockText(shown);
}

double authorizedAmount(const AdditionalTab& additional) {
    const std::optional<double> amount = parseAmount(additional.txtLOAAmount.text());
    if (!amount)
        throw ado::Error("The LOA amount \"" + additional.txtLOAAmount.text() + "\" is no amount.");
    return *amount;
}

/// An update of one column of the visit.
template <std::size_t Length>
Statement updateColumn(const FormContext& form, const char (&assignment)[Length], const std::string& value) {
    return Statement("Update Patient_data..tbOutPatient set ")
        .text(assignment)
        .value(value)
        .text("' where IDnum = '")
        .value(savedVisit(form.record))
        .text("'");
}

} // namespace

Statement updateHistory(const FormContext& form) {
    const ConsultationTab& consultation = form.fields.consultation;
    const Record& record = form.record;
    return Statement("Patient_Data..sp_AOPD_UpdateOPDHistory '")
        .values(
            {record.SaveHospNum, savedVisit(record), trimmedText(consultation.service1.code),
             trimmedText(consultation.doctor1.code), unshown(text::trimmed(record.DiagnosisID[0])),
             unshown(text::trimmed(record.DiagnosisID[1])), unshown(text::trimmed(record.DiagnosisID[2])),
             unshown(record.Findings), unshown(record.Medications), text::upper(form.fields.personal.txtRemarks.text()),
             trimmedText(consultation.txtCauseofConsultationID1), trimmedText(consultation.txtCauseofConsultationID2),
             trimmedText(consultation.txtCauseofConsultationID3), trimmedText(form.fields.history.complaint)},
            "','")
        .text("'");
}

Statement updateVisit(const FormContext& form) {
    Values values = commonVisit(form);
    for (const VisitArgument argument : form.session.globals.client().visit)
        append(values, valuesOf(argument, form));
    return Statement("Patient_Data..sp_aopd_Update_tbOutpatient '").values(values, "','").text("'");
}

std::vector<std::string> doctorsToCount(const FormContext& form) {
    const ConsultationTab& consultation = form.fields.consultation;
    std::vector<std::string> counted = form.record.countedDoctors;
    std::vector<std::string> doctors;
    for (const ui::TextBox* box : {&consultation.doctor1.code, &consultation.doctor2.code, &consultation.doctor3.code,
                                   &consultation.doctor4.code, &consultation.doctor5.code}) {
        const auto before = std::find(counted.begin(), counted.end(), box->text());
        if (before == counted.end())
            doctors.push_back(box->text());
        else
            counted.erase(before);
    }
    return doctors;
}

Statement countConsultation(const std::string& doctor) {
    return Statement("Patient_Data..sp_Adm_Update_tbAdmDoctorConsultation '").value(doctor).text("'");
}

std::vector<Statement> updateAdditionalDoctors(const FormContext& form) {
    const ConsultationTab& consultation = form.fields.consultation;
    std::vector<Statement> statements;
    int position = 0;
    for (const ui::TextBox* doctor :
         {&consultation.doctor3.code, &consultation.doctor4.code, &consultation.doctor5.code})
        statements.push_back(Statement("Patient_Data..OPD_Update_AdditionalDr '")
                                 .values({savedVisit(form.record), doctor->text(), std::to_string(++position)}, "', '")
                                 .text("'"));
    return statements;
}

Statement updateTreatments(const FormContext& form) {
    const PersonalTab& personal = form.fields.personal;
    const Record& record = form.record;
    Statement statement("Update Patient_data..tbOutPatient set isChemo = '");
    statement.value(oneIf(personal.chkChemo.checked()))
        .text("', isHemodialysis = '")
        .value(oneIf(personal.chkHemo.checked()))
        .text("', isRadiotherapy = '")
        .value(oneIf(personal.chkRTherapy.checked()));
    if (isInProgramme(personal))
        statement.text("', ExpirationDate = '")
            .value(dateTimeText(personal.dtpExpiration.value().date()))
            .text("', isForDeposit = '");
    else
        statement.text("', ExpirationDate = null, isForDeposit = '");
    return statement.value(oneIf(personal.chkforDeposit.checked()))
        .text("' where IDnum = '")
        .value(savedVisit(record))
        .text("'");
}

Statement updateWalkIn(const FormContext& form) {
    const bool walkIn = form.fields.personal.chkWalkIn.checked();
    return Statement("Update Patient_data..tbOutPatient set isWalkIn = '")
        .value(oneIf(walkIn))
        .text("', OPDStatus = '")
        .value(walkIn ? "W" : "")
        .text("' where IDnum = '")
        .value(savedVisit(form.record))
        .text("'");
}

Statement updateCorvane(const FormContext& form) {
    return updateColumn(form, "Corvane = '", oneIf(form.fields.additional.corvanePatient.selected()));
}

Statement updateMabRate(const FormContext& form) {
    return updateColumn(form, "isMABRate = '", oneIf(form.fields.additional.chkMAB.checked()));
}

Statement updatePatientClass(const FormContext& form) {
    return updateColumn(form, "PatientClass = '", trimmedText(form.fields.additional.txtPatientClassID));
}

Statement saveAuthorization(const FormContext& form) {
    const AdditionalTab& additional = form.fields.additional;
    const Record& record = form.record;
    return Statement("Patient_Data..sp_AOPD_SaveHMOLOA '")
        .values({savedVisit(form.record), trimmedText(additional.txtApprovalNo)}, "', '")
        .text("', '")
        .values({amountText(authorizedAmount(additional)),
                 record.LOAInformedUnknown ? "" : minuteText(additional.DateLOAInformed, additional.TimeLOAInformed)},
                "','")
        .text("', '")
        .value(trimmedText(additional.txtLOAReceiver))
        .text("', '")
        .values({record.LOAReceivedUnknown ? "" : minuteText(additional.DateLOAReceived, additional.TimeLOAReceived),
                 record.LOAStatusKept.sent(text::trimmed(additional.cmbLOAStatus.text()))},
                "','")
        .text("', '")
        .value(trimmedText(additional.txtLOARemarks))
        .text("'");
}

Statement saveProfile(const FormContext& form) {
    const ui::MaskedBox& period = form.fields.history.txtLMP;
    return Statement("Patient_Data..sp_AOPD_InsertUpdateOutProfile '")
        .values({text::trimmed(form.record.SaveHospNum), savedVisit(form.record)}, "','")
        .text("','', '', '', '', '', '', '', '', '")
        .value(period.isBlank() ? std::string{} : text::trimmed(period.text()))
        .text("','2'");
}

Statement logEdit(const FormContext& form) {
    return Statement("Patient_data..sp_AOPD_SaveOPD_UserLog '")
        .values({text::upper(form.fields.header.txtOPDNum.text()), form.session.globals.gUserID}, "','")
        .text("','Edited'");
}

} // namespace opd::registration
