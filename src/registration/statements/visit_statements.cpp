#include "registration/statements/visit_statements.h"

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

/// The arguments that every client's list begins with.
Values commonVisit(const Fields& fields, const Record& record, const std::string& accountType,
                   const std::string& user) {
    const PersonalTab& personal = fields.personal;
    const ConsultationTab& consultation = fields.consultation;
    return {record.SaveHospNum,
            savedVisit(record),
            personal.company.code.text(),
            text::upper(personal.txtRemarks.text()),
            consultation.service1.code.text(),
            consultation.service2.code.text(),
            consultation.service3.code.text(),
            "",
            "",
            consultation.doctor1.code.text(),
            consultation.doctor2.code.text() + " ", // the blank is as the hospitals know it
            accountType,
            record.ConsultationTypeCode,
            consultation.txtWeight.text(),
            consultation.txtTemperature.text(),
            record.BloodPressureKept.sent(pressureText(fields)),
            record.VisitKindCode,
            user,
            admDateTime(fields)};
}

/// A visit with bill has its type in a value of its own; any other type stands where the purpose does.
std::string purpose(const Fields& fields, const Record& record) {
    const std::string chosen = purposeCode(fields);
    return record.ConsultationTypeCode.empty() ? record.ConsultationTypeKept.sent(chosen) : chosen;
}

/// What the form does not show, as the database takes it.
std::string unshown(const std::string& stored) {
    return text::replaced(stored, "'", "`");
}

void append(Values& values, const Values& more) {
    values.insert(values.end(), more.begin(), more.end());
}

/// The run of arguments from the card number to the approval number that every client's list has somewhere.
Values cardToApproval(const Fields& fields, const Record& record) {
    const PersonalTab& personal = fields.personal;
    const ConsultationTab& consultation = fields.consultation;
    return {personal.txtCardNum.text(),
            record.PatientTypeCode,
            purpose(fields, record),
            personal.txtARemarks.text(),
            trimmedText(consultation.txtHeight),
            record.PerUnitKept.sent(perUnitCode(fields)),
            "",
            record.SeniorKept.sent(seniorCode(fields)),
            consultation.txtRespRate.text(),
            fields.additional.txtApprovalNo.text()};
}

Values valuesOf(VisitArgument argument, const Fields& fields, const Record& record) {
    const ConsultationTab& consultation = fields.consultation;
    switch (argument) {
    case VisitArgument::ChiefComplaint:
        return {fields.history.complaint.text()};
    case VisitArgument::Cause1:
        return {consultation.txtCauseofConsultationID1.text()};
    case VisitArgument::Cause2:
        return {consultation.txtCauseofConsultationID2.text()};
    case VisitArgument::Cause3:
        return {consultation.txtCauseofConsultationID3.text()};
    case VisitArgument::PulseRate:
        return {consultation.txtPR.text()};
    case VisitArgument::PayCode:
        return {text::trimmed(fields.personal.cmbPaycodeID.text())};
    case VisitArgument::CardToApproval:
        return cardToApproval(fields, record);
    case VisitArgument::Corvane:
        return {record.CorvanePatientCode};
    case VisitArgument::Hemodialysis:
        return {record.HemoCode};
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

} // namespace

Statement updateHistory(const Fields& fields, const Record& record) {
    const ConsultationTab& consultation = fields.consultation;
    return Statement("Patient_Data..sp_AOPD_UpdateOPDHistory '")
        .values({record.SaveHospNum, savedVisit(record), trimmedText(consultation.service1.code),
                 trimmedText(consultation.doctor1.code), unshown(text::trimmed(record.DiagnosisID[0])),
                 unshown(text::trimmed(record.DiagnosisID[1])), unshown(text::trimmed(record.DiagnosisID[2])),
                 unshown(record.Findings), unshown(record.Medications), text::upper(fields.personal.txtRemarks.text()),
                 trimmedText(consultation.txtCauseofConsultationID1),
                 trimmedText(consultation.txtCauseofConsultationID2),
                 trimmedText(consultation.txtCauseofConsultationID3), trimmedText(fields.history.complaint)},
                "','")
        .text("'");
}

Statement updateVisit(const Fields& fields, const Record& record, const ClientProfile& client,
                      const std::string& accountType, const std::string& user) {
    Values values = commonVisit(fields, record, accountType, user);
    for (const VisitArgument argument : client.visit)
        append(values, valuesOf(argument, fields, record));
    return Statement("Patient_Data..sp_aopd_Update_tbOutpatient '").values(values, "','").text("'");
}

std::vector<std::string> doctorsToCount(const Fields& fields, const Record& record) {
    const ConsultationTab& consultation = fields.consultation;
    std::vector<std::string> counted = record.countedDoctors;
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

std::vector<Statement> updateAdditionalDoctors(const Fields& fields, const Record& record) {
    const ConsultationTab& consultation = fields.consultation;
    std::vector<Statement> statements;
    int position = 0;
    for (const ui::TextBox* doctor :
         {&consultation.doctor3.code, &consultation.doctor4.code, &consultation.doctor5.code})
        statements.push_back(Statement("Patient_Data..OPD_Update_AdditionalDr '")
                                 .values({savedVisit(record), doctor->text(), std::to_string(++position)}, "', '")
                                 .text("'"));
    return statements;
}

Statement updateTreatments(const Fields& fields, const Record& record) {
    const PersonalTab& personal = fields.personal;
    Statement statement("Update Patient_data..tbOutPatient set isChemo = '");
    statement.value(bit(personal.chkChemo.checked()))
        .text("', isHemodialysis = '")
        .value(bit(personal.chkHemo.checked()))
        .text("', isRadiotherapy = '")
        .value(bit(personal.chkRTherapy.checked()));
    if (isInProgramme(personal))
        statement.text("', ExpirationDate = '")
            .value(dateTimeText(personal.dtpExpiration.value().date()))
            .text("', isForDeposit = '");
    else
        statement.text("', ExpirationDate = null, isForDeposit = '");
    return statement.value(bit(personal.chkforDeposit.checked()))
        .text("' where IDnum = '")
        .value(savedVisit(record))
        .text("'");
}

Statement updateWalkIn(const Fields& fields, const Record& record) {
    const bool walkIn = fields.personal.chkWalkIn.checked();
    return Statement("Update Patient_data..tbOutPatient set isWalkIn = '")
        .value(bit(walkIn))
        .text("', OPDStatus = '")
        .value(walkIn ? "W" : "")
        .text("' where IDnum = '")
        .value(savedVisit(record))
        .text("'");
}

Statement updateColumn(const Record& record, std::string_view column, const std::string& value) {
    return Statement("Update Patient_data..tbOutPatient set ")
        .identifier(column)
        .text(" = '")
        .value(value)
        .text("' where IDnum = '")
        .value(savedVisit(record))
        .text("'");
}

Statement saveAuthorization(const Fields& fields, const Record& record) {
    const AdditionalTab& additional = fields.additional;
    return Statement("Patient_Data..sp_AOPD_SaveHMOLOA '")
        .values({savedVisit(record), trimmedText(additional.txtApprovalNo)}, "', '")
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

Statement saveProfile(const Fields& fields, const Record& record) {
    const ui::MaskedBox& period = fields.history.txtLMP;
    return Statement("Patient_Data..sp_AOPD_InsertUpdateOutProfile '")
        .values({text::trimmed(record.SaveHospNum), savedVisit(record)}, "','")
        .text("','', '', '', '', '', '', '', '', '")
        .value(period.isBlank() ? std::string{} : text::trimmed(period.text()))
        .text("','2'");
}

Statement logEdit(const std::string& shownVisit, const std::string& user) {
    return Statement("Patient_data..sp_AOPD_SaveOPD_UserLog '")
        .values({text::upper(shownVisit), user}, "','")
        .text("','Edited'");
}

Statement findVisit(const std::string& visit) {
    return Statement("Select IDNum from Patient_Data..tbOutPatient where IDNum = '").value(visit).text("'");
}

Statement giveFileNumber(const std::string& hospNum) {
    return Statement("Patient_data..OPD_UpdateFileNum '").value(hospNum).text("'");
}

} // namespace opd::registration
